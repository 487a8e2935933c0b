// Focus, test patterns, white balance, flash, and the memory of the camera module.
#include <algorithm>
#include <cstring>

#include "camera_durnspire_inner.h"
#include "plat/plat.h"

namespace {

constexpr std::uint32_t FOCUS_MODE = 8;
constexpr std::uint32_t METERING_BY_WINDOW = 8;
constexpr std::int64_t FOCUS_LIMIT_US = 10'000'000;

constexpr std::int32_t LAST_PATTERN = 2;
constexpr std::int32_t LAST_FREE_PATTERN = 4; // the sensor has nothing to do for these

void set_focus(bool running, int status)
{
    const std::lock_guard lock(durnspire.mutex);
    durnspire.focus_running = running;
    durnspire.focus_status = status;
}

// A run that has no end is stopped, and what comes of it later isn't heard.
bool durnspire_autoLockInternal(std::uint8_t flag0, std::uint8_t flag1, std::uint8_t flag2)
{
    if (durnspire_call(&drns_operations::auto_lock, flag0, flag1, flag2) < 0)
        return false;
    std::unique_lock lock(durnspire.mutex);
    const bool ended =
        plat_wait_for(durnspire.focus_done, lock, FOCUS_LIMIT_US, [] { return !durnspire.focus_running; });
    lock.unlock();
    if (!ended)
        durnspire_call(&drns_operations::cancel_auto_lock);
    return ended;
}

} // namespace

int durnspire_start_autofocus()
{
    if (durnspire.focus_running)
        return DURNSPIRE_DONE;
    if (!durnspire_set(DRNS_FOCUS_MODE, FOCUS_MODE))
        return DURNSPIRE_FAILED;
    set_focus(true, CAMERA_FOCUS_RUNNING);
    if (durnspire_autoLockInternal(1, 0, 0))
        return DURNSPIRE_DONE;
    set_focus(false, CAMERA_FOCUS_NONE);
    return DURNSPIRE_FAILED;
}

int durnspire_stop_autofocus()
{
    const int result = durnspire_call(&drns_operations::cancel_auto_lock);
    set_focus(false, CAMERA_FOCUS_NONE);
    return result >= 0 ? DURNSPIRE_DONE : DURNSPIRE_FAILED;
}

int durnspire_get_autofocus_status()
{
    const std::lock_guard lock(durnspire.mutex);
    return durnspire.focus_status;
}

int durnspire_test_pattern(std::int32_t pattern)
{
    if (pattern < 0 || pattern > LAST_FREE_PATTERN)
        return DURNSPIRE_FAILED;
    if (pattern > LAST_PATTERN)
        return DURNSPIRE_DONE;
    return durnspire_set(DRNS_TEST_PATTERN, static_cast<std::uint32_t>(pattern)) ? DURNSPIRE_DONE
                                                                                 : DURNSPIRE_FAILED;
}

int durnspire_read_eeprom(std::uint32_t* p_length, std::uint8_t* buf)
{
    drns_eeprom_param param = {.id = DRNS_EEPROM, .bytes = {}};
    static_assert(sizeof param.bytes == CAMERA_EEPROM_SIZE);
    if (durnspire_call(&drns_operations::get_parameter, static_cast<void*>(&param)) < 0)
        return 0;
    std::memcpy(buf, param.bytes, sizeof param.bytes);
    *p_length = sizeof param.bytes;
    return 1;
}

int durnspire_check_eeprom()
{
    drns_status status = {};
    const bool read = durnspire_call(&drns_operations::get_status, &status) >= 0;
    return read && status.eeprom_good == 1 ? 0 : 1;
}

void durnspire_set_ae_wb_window(std::uint16_t x, std::uint16_t y, std::uint16_t width, std::uint16_t height)
{
    drns_word_param metering = {DRNS_METERING, 0};
    if (durnspire_call(&drns_operations::get_parameter, static_cast<void*>(&metering)) < 0)
        return;
    durnspire.photometry = metering.value;
    if (!durnspire_set(DRNS_METERING, METERING_BY_WINDOW))
        return;
    drns_window_param window = {.id = DRNS_METERING_WINDOW, .flags = {}};
    const std::uint32_t right = std::min<std::uint32_t>(x + width, DRNS_GRID);
    const std::uint32_t bottom = std::min<std::uint32_t>(y + height, DRNS_GRID);
    for (std::uint32_t row = y; row < bottom; row++)
        for (std::uint32_t column = x; column < right; column++)
            window.flags[row * DRNS_GRID + column] = 1;
    durnspire_call(&drns_operations::set_parameter, static_cast<const void*>(&window));
}

// The metering mode is again what it was before the window.
int durnspire_read_rgby(std::uint32_t* p_four)
{
    drns_rgby_param param = {.id = DRNS_RGBY, .words = {}};
    if (durnspire_call(&drns_operations::get_parameter, static_cast<void*>(&param)) < 0)
        return DURNSPIRE_FAILED;
    std::copy_n(param.words, std::size(param.words), p_four);
    return durnspire_set(DRNS_METERING, durnspire.photometry) ? DURNSPIRE_DONE : DURNSPIRE_FAILED;
}

void durnspire_set_flash(int on)
{
    if (durnspire.opened && durnspire_set(DRNS_FLASH, on == 1 ? 1 : 0))
        durnspire_set(DRNS_FLASH_2, 0);
}
