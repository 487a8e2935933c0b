// A person's verdict on the picture: volume up or back for good, volume down or the second for bad.
#pragma once

int mhl_sii8334_switch_mode(int on);
int mhl_sii8334_read_result(int* p_result);
