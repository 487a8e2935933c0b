// The pin driver for GPIO lines: one device node a line, "/dev/gpio" and its number, opened and closed for
// each access. Modules use pin; only who needs a line's configuration comes here.
#pragma once

// Enters the driver as pin group `grp`.
void gpio_linux_init(int grp);

// The level of line `n`: 0, 1, 4 when the node tells something else, 5 when it can't be read.
int gpio_linux_rd(unsigned n);

// Drives line `n` to level 0 or 1; any other level writes nothing. 1, or 0 on failure.
int gpio_linux_set(unsigned n, int level);

// Makes line `n` an input (`dir` 0) or an output (1). 1, or 0 on failure.
int gpio_linux_dir(unsigned n, int dir);

// Writes the 9 bytes of a configuration. 1, or 0 on failure.
int gpio_linux_cfg(unsigned n, const char* buf);

// Reads 6 bytes of the configuration. Here 0 is success and 1 failure.
int gpio_linux_cfgr(unsigned n, char* buf);
