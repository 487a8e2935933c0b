// The HDMI output, by its operations: on and off, a picture, a tone, what the monitor tells. Passes them on
// to the driver that is attached, and keeps no state. Drawing on the output goes through `screen`, slot 2.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr std::size_t HDMI_EDID_BYTES = 256;
constexpr std::size_t HDMI_HDCP_BYTES = 6;

// Pictures; any other number but 0 is the ramps of the three colours.
constexpr std::uint32_t HDMI_PATTERN_NONE = 0; // ends the output
constexpr std::uint32_t HDMI_PATTERN_GREY = 2;
constexpr std::uint32_t HDMI_PATTERN_WHITE = 3;

// All give 0 or more for success and -1 for failure, which is what an operation gives that the driver lacks.
struct hdmi_co {
    int (*start)();
    int (*stop)();
    int (*set_output_video)(std::uint32_t pattern, std::uint32_t mode);
    int (*set_output_sine_tone)(std::uint32_t on);
    int (*sink_detection)(int count, std::uint32_t value);
    int (*read_edid)(std::uint8_t* p_bytes);
    int (*send_cec)(std::uint32_t opcode);
    int (*tmds_test)(std::uint32_t on);
    int (*read_hdcp)(std::uint8_t* p_bytes);
    int (*firmware_download)();
};

void hdmi_init();
void hdmi_co_attach(const hdmi_co* p_co);

int hdmi_start();
int hdmi_stop();

// Shows a picture in video mode 0 (720 x 480), 1 (1280 x 720) or 2 (1920 x 1080).
int hdmi_set_output_video(std::uint32_t pattern, std::uint32_t mode);

// A tone of 1 kHz: 1 on, 0 off.
int hdmi_set_output_sine_tone(std::uint32_t on);

// 1 when a monitor is connected, 0 when none is. A `count` of 1 or a `value` of 1 asks once; otherwise a
// monitor that was found is asked for again.
int hdmi_sink_detection(int count, std::uint32_t value);

// HDMI_EDID_BYTES and HDMI_HDCP_BYTES; on failure the bytes behind the fault stay as they were.
int hdmi_read_edid(std::uint8_t* p_bytes);
int hdmi_read_hdcp(std::uint8_t* p_bytes);

// Sends a CEC command without values: the bytes sent, 0 for opcode 0x36 (standby) whatever happened.
int hdmi_send_cec(std::uint32_t opcode);

int hdmi_tmds_test(std::uint32_t on);
int hdmi_firmware_download();
