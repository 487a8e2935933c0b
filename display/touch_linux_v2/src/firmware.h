// Requests of the panel driver's control node, and the firmware of the controller behind it.
// All give 1 for success and 0 for failure.
#pragma once

#include "touch_v2/touch.h"

// Opens the control node, makes one request and closes it again.
int touch_linux_ctrl(const touch_config* p_cfg, unsigned long request, void* arg);

int touch_linux_hwinfo(const touch_config* p_cfg, touch_hwinfo* p_info);

// Downloads the firmware at `path`; null: the file that fits the controller's identity.
int touch_linux_download(const touch_config* p_cfg, const char* path);
