// What the main chip's fuses say: voltage setting and identity. A driver does the work (msm_cmd_co_attach).
// Both operations give 0 on success.
#pragma once

#include <cstdint>

struct msm_co {
    int (*pvs_read)(int* p_val);
    int (*version_read)(std::uint32_t* p_3vals);
};

void msm_init();
void msm_cmd_co_attach(const msm_co* p_co);

// The processor's voltage setting.
int msm_pvs_read(int* p_val);

// Device id, feature id and version id into three words.
int msm_version_read(std::uint32_t* p_3vals);
