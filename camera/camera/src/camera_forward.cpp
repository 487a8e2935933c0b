// The operations that go straight on to the driver, and the image tests on the picture in memory.
#include "camera/camera.h"

#include "callout/callout.h"
#include "camera/camera_tests.h"
#include "camera_inner.h"

namespace {

constexpr int NOT_SUPPORTED = -1;

int flash_on;

// The driver's result as 1 or 0.
int done(int result)
{
    return result >= 1 ? 1 : 0;
}

} // namespace

int camera_start_autofocus()
{
    return done(callout(camera_me.co.start_autofocus, 0));
}

int camera_stop_autofocus()
{
    return done(callout(camera_me.co.stop_autofocus, 0));
}

int camera_get_autofocus_status()
{
    return callout(camera_me.co.get_autofocus_status, CAMERA_FOCUS_NONE);
}

int camera_test_pattern(std::int32_t pattern)
{
    return callout(camera_me.co.test_pattern, NOT_SUPPORTED, pattern);
}

int camera_load_firmware(const char* path)
{
    return done(callout(camera_me.co.load_firmware, 0, path));
}

std::uint32_t camera_get_firmware_version()
{
    return callout(camera_me.co.get_firmware_version, 0);
}

std::uint32_t camera_get_isp_version()
{
    return callout(camera_me.co.get_isp_version, 0);
}

int camera_get_calibration_settings(void* p_settings)
{
    return callout(camera_me.co.get_calibration_settings, NOT_SUPPORTED, p_settings);
}

int camera_set_calibration_settings(const void* p_settings)
{
    return callout(camera_me.co.set_calibration_settings, NOT_SUPPORTED, p_settings);
}

int camera_get_current_shutter_speed()
{
    return callout(camera_me.co.get_current_shutter_speed, NOT_SUPPORTED);
}

int camera_read_luminance(std::uint8_t channel, std::uint32_t* p_value)
{
    return camera_me.current == 0 ? 0 : callout(camera_me.co.read_luminance, NOT_SUPPORTED, channel, p_value);
}

int camera_read_rgby(std::uint32_t* p_four)
{
    return camera_me.current == 0 ? 0 : done(callout(camera_me.co.read_rgby, 0, p_four));
}

std::uint32_t camera_get_eeprom_size()
{
    return callout(camera_me.co.get_eeprom_size, 0);
}

int camera_read_eeprom(std::uint32_t* p_length, std::uint8_t* buf)
{
    return done(callout(camera_me.co.read_eeprom, 0, p_length, buf));
}

int camera_check_eeprom()
{
    return callout(camera_me.co.check_eeprom, NOT_SUPPORTED);
}

void camera_set_ae_wb_window(std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height)
{
    const auto low = [](std::uint32_t v) { return static_cast<std::uint16_t>(v); };
    if (camera_me.co.set_ae_wb_window != nullptr)
        camera_me.co.set_ae_wb_window(low(x), low(y), low(width), low(height));
}

void camera_set_flash(int on)
{
    if (on == flash_on)
        return;
    flash_on = on;
    if (camera_me.co.set_flash != nullptr)
        camera_me.co.set_flash(on);
}

int camera_run_blemish_test(const camera_blemish_config* p_config, camera_blemish_result* p_result)
{
    return camera_blemish_do_test(p_config, p_result, &camera_me.snapshot);
}

int camera_initialize_blemish_config(camera_blemish_config* p_config)
{
    camconf_get_camb_config(p_config);
    return 1;
}

int camera_run_general_test(camera_general_result* p_result)
{
    const camera_snapshot& picture = camera_me.snapshot;
    if (picture.buffer == nullptr || picture.format != CAMCONF_FORMAT_YUV)
        return 0;
    const camera_general_request request = {picture.buffer, picture.width, picture.height,
                                            picture.nbr_of_bytes};
    return camera_general_do_test(&request, p_result);
}

int camera_get_general_param(std::uint32_t id, std::uint32_t* p_value)
{
    return camera_general_get_param(id & 0xFFFF, p_value);
}

int camera_set_general_param(std::uint32_t id, std::uint32_t value)
{
    return camera_general_set_param(id & 0xFFFF, value);
}

int camera_run_focus_test(std::uint32_t kind, std::uint32_t x, std::uint32_t y, std::uint32_t width,
                          std::uint32_t height, camera_focus_result* p_result)
{
    return camera_focus_do_test(kind, p_result, &camera_me.snapshot, x, y, width, height);
}

int camera_run_alignment_test(const camera_alignment_config& config, camera_alignment_result* p_result)
{
    return camera_alignment_test(config, p_result, &camera_me.snapshot);
}

int camera_get_average_image_intensity(std::uint32_t threshold, std::uint32_t channel,
                                       std::uint32_t* p_average, std::uint32_t* p_count)
{
    return camera_intensity_get_average_intensity(threshold, channel, &camera_me.snapshot, p_average,
                                                  p_count);
}

int camera_run_connection_test(std::uint32_t kind, std::uint32_t limit, std::uint32_t* p_first,
                               std::uint32_t* p_second)
{
    return camera_connection_do_test(kind, limit, p_first, p_second, &camera_me.snapshot);
}
