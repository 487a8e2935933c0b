// The word `camera`: what the service has, and what the bench makes of the modules.
#include <optional>
#include <string>

#include "camera/params.h"
#include "camera/scene.h"
#include "camera/service_inner.h"
#include "core/control.h"
#include "core/text.h"

namespace phone {

namespace {

std::string about(unsigned n)
{
    const std::lock_guard lock(cameras.mutex);
    std::string text = "closed";
    unsigned held = 0;
    if (cameras.open == n) {
        text = "open";
        if (cameras.preview)
            text = "preview " + std::to_string(cameras.width) + "x" + std::to_string(cameras.height);
        for (const preview_buffer& buffer : cameras.buffers)
            held += buffer.held;
    }
    return text + " frames " + std::to_string(cameras.frames[n]) + " held " + std::to_string(held) +
           " heaps " + std::to_string(cameras.heaps);
}

std::string param(unsigned n, request& rq)
{
    const auto id = rq.args.size() >= 3 ? number(rq.args[2]) : std::nullopt;
    const camera_parameter* p =
        id && *id >= 0 && *id <= UINT32_MAX ? camera_parameter_of(static_cast<std::uint32_t>(*id)) : nullptr;
    if (p == nullptr || rq.args.size() > 4)
        return "N param ID [HEX] is wanted; the service has 1, 2, 5, 6, 8, 9, 13, 14, 16, 28, 29, 40, 41, 42";
    if (rq.args.size() == 3) {
        const std::vector<std::uint8_t> value = camera_parameter_get(n, p->id);
        rq.answer = value.empty() ? "none" : to_hex(value.data(), value.size());
        return {};
    }
    const auto bytes = hex_bytes(rq.args[3]);
    if (!bytes || bytes->empty() || bytes->size() > p->length)
        return "1 to " + std::to_string(p->length) + " bytes are wanted, two digits each";
    camera_parameter_set(n, p->id, bytes->data(), bytes->size());
    return {};
}

std::string focus(unsigned n, const std::string& what)
{
    const std::lock_guard lock(cameras.mutex);
    if (what == "good" || what == "bad" || what == "error")
        cameras.focus[n] = what == "good"  ? focus_end::good
                           : what == "bad" ? focus_end::bad
                                           : focus_end::error;
    else
        return "good, bad or error is wanted";
    return {};
}

std::string eeprom(unsigned n, const std::string& what)
{
    if (what != "good" && what != "bad")
        return "good or bad is wanted";
    const std::lock_guard lock(cameras.mutex);
    cameras.eeprom_bad[n] = what == "bad";
    return {};
}

std::optional<unsigned> bit(const std::string& text)
{
    const auto n = number(text);
    return n && *n >= 0 && *n <= 7 ? std::optional(static_cast<unsigned>(*n)) : std::nullopt;
}

std::string data(unsigned n, const std::vector<std::string>& args)
{
    const char* const wanted = "good, stuck BIT 0|1 or short BIT BIT is wanted, bits 0 to 7";
    scene_data_lines lines;
    if (args.size() == 3 && args[2] == "good") {
        scene_set_data(n, lines);
        return {};
    }
    if (args.size() != 5 || !bit(args[3]) || !bit(args[4]))
        return wanted;
    if (args[2] == "stuck" && *bit(args[4]) <= 1)
        lines = {.fault = scene_data_lines::stuck, .bit = *bit(args[3]), .other = *bit(args[4])};
    else if (args[2] == "short" && *bit(args[3]) != *bit(args[4]))
        lines = {.fault = scene_data_lines::shorted, .bit = *bit(args[3]), .other = *bit(args[4])};
    else
        return wanted;
    scene_set_data(n, lines);
    return {};
}

std::string word_camera(request& rq)
{
    const auto n = rq.args.empty() ? std::nullopt : number(rq.args[0]);
    if (!n || (*n != 1 && *n != 2))
        return "a camera is wanted, 1 or 2";
    const auto camera = static_cast<unsigned>(*n);
    if (rq.args.size() == 1) {
        rq.answer = about(camera);
        return {};
    }
    if (rq.args[1] == "param")
        return param(camera, rq);
    if (rq.args[1] == "focus" && rq.args.size() == 3)
        return focus(camera, rq.args[2]);
    if (rq.args[1] == "eeprom" && rq.args.size() == 3)
        return eeprom(camera, rq.args[2]);
    if (rq.args[1] == "data")
        return data(camera, rq.args);
    return "N [param ID [HEX] | focus good|bad|error | eeprom good|bad | data ...] is wanted";
}

} // namespace

void camera_words_attach()
{
    word_add("camera",
             "N [param ID [HEX]|focus good|bad|error|eeprom good|bad|data good|stuck BIT 0|1|short BIT BIT]",
             "what the camera service has; a parameter; how focus, memory and data lines are", word_camera);
}

} // namespace phone
