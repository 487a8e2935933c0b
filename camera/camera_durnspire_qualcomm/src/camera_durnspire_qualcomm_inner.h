// Pictures on the screen: what the table takes from camera_durnspire_qualcomm_screen.cpp. Frames come on
// threads of the camera client, the rest on the caller's: one mutex guards all of it.
#pragma once

#include <cstdint>

struct camera_frame;

void camera_durnspire_qualcomm_screen_init();

// 1; -1 with no active screen, or when its device can't be opened or isn't the one that is configured.
int camera_durnspire_qualcomm_open_framebuffer();

// 0; -1 while the memory of turned pictures couldn't be freed.
int camera_durnspire_qualcomm_close_framebuffer();

// 1, also without a framebuffer; -1 when a step failed.
int camera_durnspire_qualcomm_send_yuv_to_screen(std::uint32_t screen, std::int32_t rotation,
                                                 const camera_frame* p_frame);

// 1; -1 when the display driver keeps an overlay.
int camera_durnspire_qualcomm_overlay_unset();
