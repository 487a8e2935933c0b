// The voltage regulators, named as the kernel names them. A driver does the work (vreg_cmd_co_attach). All
// operations give 0 on success; 1 when an attribute fails, 2 when the regulator or attribute isn't there.
#pragma once

#include <cstddef>

struct vreg_co {
    int (*enable)(const char* name);
    int (*disable)(const char* name);
    int (*set_level)(const char* name, int mv);
    int (*get_level)(const char* name, int* p_lvl, int* p_min, int* p_max);
    int (*set_mode)(const char* name, int mode);
    int (*get_name)(int index, char* p_buf, std::size_t size);
};

void vreg_init();
void vreg_cmd_co_attach(const vreg_co* p_co);

int vreg_enable(const char* name);
int vreg_disable(const char* name);

// Levels in mV.
int vreg_set_level(const char* name, int mv);
int vreg_get_level(const char* name, int* p_lvl, int* p_min, int* p_max);

// Mode 1 fast, 2 normal, 4 idle, 8 standby.
int vreg_set_mode(const char* name, int mode);

// The name of regulator `index`, from 0 on without gaps, cut to `size` - 1 characters.
int vreg_get_name(int index, char* p_buf, std::size_t size);
