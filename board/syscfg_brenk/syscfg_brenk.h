// The system modes and settings of the board "brenk". Attaches itself to syscfg; call that.
#pragma once

void syscfg_brenk_init();
