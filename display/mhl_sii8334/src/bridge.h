// The tests on the chip itself: status and result as for `mhl`.
#pragma once

int mhl_sii8334_bridge_bist(int* p_result);
int mhl_sii8334_bridge_hpd(int* p_result);
int mhl_sii8334_bridge_ddc(int* p_result);

// 1 when the hot plug line is active.
int mhl_sii8334_hotplug();
