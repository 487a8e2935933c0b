// The memory card behind an MMC block device with a FAT file system. Settings: "sdcard_de"/"mmc_dev", the
// device; without it the first mmcblk partition is taken.
#pragma once

void sdcard_de_init();
