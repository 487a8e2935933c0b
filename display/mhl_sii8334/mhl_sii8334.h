// The SiI8334 bridge. Its tests are read from the kernel driver's debugfs where the setting
// "sii8334"/"use_debugfs" names that folder, with a slash behind it; else they run on the chip itself, over
// I2C, after a reset. Attaches to `mhl`; all operations are reached there.
#pragma once

void mhl_sii8334_init();
