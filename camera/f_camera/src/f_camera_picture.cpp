// Life cycle, viewfinder, snapshot and focus.
#include <cstdint>
#include <cstring>
#include <iterator>

#include "camera/camera.h"
#include "f_camera_inner.h"
#include "scf/scf.h"

namespace {

constexpr std::size_t LISTING_SIZE = 2048;
constexpr std::uint32_t ROTATIONS = 8;

// Of the last viewfinder: a snapshot that is given back brings it back.
camconf_sizeconfig active_sizeconfig;
std::uint32_t current_viewfinder_rotation;

int list_sizes(int id)
{
    char text[LISTING_SIZE];
    if (camconf_get_sizeconfigs(text, sizeof text) == 0)
        return dcp_answer(id, "cams", "", DCP_ERROR);
    dcp_print_long(id, "cams", text);
    return DCP_OK;
}

int cams_release(int id, const char*)
{
    camera_set_flash(0);
    const auto rotation = static_cast<std::int32_t>(current_viewfinder_rotation);
    return f_camera_answer(id, "cams", camera_release_snapshot(active_sizeconfig, rotation));
}

int cams_take(int id, const char* text)
{
    std::uint32_t config = 0;
    if (text != nullptr) {
        const unsigned radix = std::strpbrk(text, "xX") != nullptr ? 16 : 10;
        config = static_cast<std::uint32_t>(scf_ascii_to_bin(&text, radix)) & 0xFF;
    }
    camconf_sizeconfig size;
    const bool known =
        camconf_sizeconfig_exist(config) == 1 && camconf_sizeconfig_resolve(config, &size) == 1;
    return f_camera_answer(id, "cams", known ? camera_take_snapshot(size) : 0);
}

int cams_take_with_flash(int id, const char* text)
{
    camera_set_flash(1);
    return cams_take(id, text);
}

int cams_save(int id, const char* path)
{
    return path != nullptr ? f_camera_answer(id, "cams", camera_save_snapshot(path)) : DCP_SYNTAX;
}

int cams_load(int id, const char* path)
{
    return path != nullptr ? f_camera_answer(id, "cams", camera_load_snapshot(path)) : DCP_SYNTAX;
}

int cams_size(int id, const char* text)
{
    camconf_sizeconfig size{};
    if (text == nullptr) {
        camera_get_sizeconf(&size);
        dcp_printf(id, "cams", "%d,%d,%u", size.width, size.height, size.format);
        return dcp_answer(id, "cams", "", DCP_OK);
    }
    std::int32_t n[3];
    const auto is_16_bit = [](std::int32_t v) { return v >= 0 && v <= UINT16_MAX; };
    if (scf_str_to_int32(n, 3, text, 10) != 3 || !is_16_bit(n[0]) || !is_16_bit(n[1]))
        return DCP_SYNTAX;
    size.width = static_cast<std::uint16_t>(n[0]);
    size.height = static_cast<std::uint16_t>(n[1]);
    size.format = static_cast<std::uint32_t>(n[2]);
    return f_camera_answer(id, "cams", camera_set_sizeconf(size));
}

using cams_fn = int (*)(int id, const char* text);

constexpr cams_fn cams_functions[] = {
    cams_release, cams_take, cams_take_with_flash, nullptr, cams_save, cams_size, cams_load,
};

} // namespace

int do_caml(int id, int action, int argc, const dcp_word* argv)
{
    if (argc != 1)
        return argc == 2 ? dcp_answer(id, "caml", " Not implemented!", DCP_ERROR) : DCP_SYNTAX;
    if (action != DCP_ACTION_SET)
        return DCP_SYNTAX;
    const std::uint32_t camera = dcp_uint(argv[0]);
    if (camera == 0)
        return f_camera_answer(id, "caml", camera_stop());
    camconf_sizeconfig_set_map(camera);
    return f_camera_answer(id, "caml", camera_start(camera));
}

int do_camv(int id, int action, int argc, const dcp_word* argv)
{
    if (argc < 1 || argc > 3)
        return DCP_SYNTAX;
    const std::uint32_t quarters = argc == 3 ? dcp_uint(argv[2]) : 0;
    if (quarters >= ROTATIONS / 2)
        return DCP_SYNTAX;
    current_viewfinder_rotation = quarters * 2;
    if (action != DCP_ACTION_SET)
        return DCP_OK;
    if (dcp_uint(argv[0]) == 0)
        return f_camera_answer(id, "camv", camera_stop_viewfinder());
    camconf_sizeconfig_resolve(argc > 1 ? dcp_uint(argv[1]) & 0xFF : 0, &active_sizeconfig);
    const auto rotation = static_cast<std::int32_t>(current_viewfinder_rotation);
    return f_camera_answer(id, "camv", camera_start_viewfinder(active_sizeconfig, rotation));
}

int do_cams(int id, int action, int argc, const dcp_word* argv)
{
    if (argc == 0)
        return list_sizes(id);
    if (argc > 2)
        return DCP_SYNTAX;
    if (action != DCP_ACTION_SET)
        return DCP_OK;
    const std::uint32_t sub = dcp_uint(argv[0]);
    const cams_fn fn = sub < std::size(cams_functions) ? cams_functions[sub] : nullptr;
    if (fn == nullptr)
        return dcp_answer(id, "cams", "", DCP_SYNTAX);
    char* text = argc == 2 ? dcp_text(argv[1]) : nullptr;
    if (text != nullptr)
        scf_clean(text, "\"");
    return fn(id, text);
}

int do_caaf(int id, int action, int argc, const dcp_word* argv)
{
    if (argc > 1)
        return DCP_SYNTAX;
    if (action != DCP_ACTION_SET)
        return DCP_OK;
    if (argc == 0) {
        dcp_printf(id, "caaf", "%d", camera_get_autofocus_status());
        return DCP_OK;
    }
    switch (dcp_uint(argv[0])) {
    case 0:
        return f_camera_answer(id, "caaf", camera_stop_autofocus());
    case 1:
        return f_camera_answer(id, "caaf", camera_start_autofocus());
    default:
        return DCP_SYNTAX;
    }
}
