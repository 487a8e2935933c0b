// System modes: how much current the processor may draw, as a set of kernel settings that a mode writes, or
// that a station writes one by one. A driver does the work (syscfg_cmd_co_attach). Results: 0 success, 1
// failure, 2 number out of range.
#pragma once

struct syscfg_co {
    int (*set_mode)(unsigned mode);
    const char* const* (*get_modes)(int* p_count);
    const char* const* (*get_settings)(int* p_count);
    const char* (*get_setting)(unsigned index);
    int (*set_setting)(unsigned index, const char* text);
    int (*set_ip_addr)(unsigned byte);
};

void syscfg_init();
void syscfg_cmd_co_attach(const syscfg_co* p_co);

// Writes all settings of a mode. A setting that can't be written is passed over.
int syscfg_set_mode(unsigned mode);

// The names of the modes, and the paths of the settings: an array of `*p_count`.
const char* const* syscfg_get_modes(int* p_count);
const char* const* syscfg_get_settings(int* p_count);

// The current text of a setting, or null. It is valid until the next call.
const char* syscfg_get_setting(unsigned index);
int syscfg_set_setting(unsigned index, const char* text);

// The last number of the phone's IP address.
int syscfg_set_ip_addr(unsigned byte);
