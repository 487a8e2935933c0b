#include "camera/scene.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <tuple>
#include <variant>

#include "camera/canvas.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/text.h"

namespace phone {

namespace {

struct shade {
    double x, y, radius, depth;
};

struct layer {
    std::string text;
    std::variant<canvas_box, shade> what;
};

struct chart_scene {
    std::vector<std::string> without;
};
struct tilt_scene {
    double degrees;
};

struct scene {
    std::string text; // as it was set
    std::variant<yuv, chart_scene, tilt_scene, picture_file> base;
    std::vector<layer> layers;
    scene_data_lines lines;
    std::map<std::tuple<std::uint32_t, std::uint32_t, bool>, scene_picture> drawn;
};

std::mutex scenes_mutex; // guards the scenes
scene scenes[3] = {
    {},
    {.text = "chart", .base = chart_scene{}, .layers = {}, .lines = {}, .drawn = {}},
    {.text = "flat 118 121 133", .base = yuv{118, 121, 133}, .layers = {}, .lines = {}, .drawn = {}},
};

void paint(canvas& c, const shade& s)
{
    const auto from = [](double v) { return static_cast<std::size_t>(std::max(0.0, std::floor(v))); };
    for (std::size_t row = from(s.y - s.radius); row < c.height && static_cast<double>(row) <= s.y + s.radius;
         row++)
        for (std::size_t col = from(s.x - s.radius);
             col < c.width && static_cast<double>(col) <= s.x + s.radius; col++) {
            const double d = std::hypot(static_cast<double>(col) - s.x, static_cast<double>(row) - s.y);
            if (d < s.radius) {
                const double darker = s.depth * (1 + std::cos(M_PI * d / s.radius)) / 2;
                c.y(row, col) = static_cast<std::uint8_t>(std::lround(c.y(row, col) * (1 - darker)));
            }
        }
}

void paint_base(canvas& c, const scene& s)
{
    if (const auto* flat = std::get_if<yuv>(&s.base))
        canvas_paint(c, {0, 0, c.width, c.height, flat->y, flat->u, flat->v});
    else if (const auto* chart = std::get_if<chart_scene>(&s.base))
        chart_draw(c, chart->without);
    else if (const auto* tilt = std::get_if<tilt_scene>(&s.base))
        canvas_cross(c, tilt->degrees);
    else
        canvas_picture(c, std::get<picture_file>(s.base));
}

void paint_scene(canvas& c, const scene& s)
{
    paint_base(c, s);
    for (const layer& l : s.layers) {
        if (const auto* box = std::get_if<canvas_box>(&l.what))
            canvas_paint(c, *box);
        else
            paint(c, std::get<shade>(l.what));
    }
}

void paint_count(canvas& c)
{
    for (std::size_t row = 0; row < c.height; row++)
        for (std::size_t col = 0; col < c.width; col++)
            c.y(row, col) = static_cast<std::uint8_t>(col);
}

std::uint8_t carried(std::uint8_t v, const scene_data_lines& lines)
{
    const unsigned at = lines.fault == scene_data_lines::stuck ? lines.bit : lines.other;
    const unsigned level = lines.fault == scene_data_lines::stuck ? lines.other : v >> lines.bit & 1;
    return static_cast<std::uint8_t>((v & ~(1u << at)) | level << at);
}

// A number behind the position, which goes on; nothing when there is none or it doesn't fit.
std::optional<std::int64_t> take(const std::vector<std::string>& args, std::size_t& at, std::int64_t least,
                                 std::int64_t most)
{
    const auto n = at < args.size() ? number(args[at]) : std::nullopt;
    at++;
    return n && *n >= least && *n <= most ? n : std::nullopt;
}

std::string set_flat(const std::vector<std::string>& args, scene& s)
{
    std::size_t at = 1;
    const auto y = take(args, at, 0, 255);
    const bool grey = args.size() == 2;
    const auto u = grey ? 128 : take(args, at, 0, 255), v = grey ? 128 : take(args, at, 0, 255);
    if (!y || !u || !v || at != args.size())
        return "flat Y [U V] is wanted, 0 to 255 each";
    s.base = yuv{static_cast<std::uint8_t>(*y), static_cast<std::uint8_t>(*u), static_cast<std::uint8_t>(*v)};
    return {};
}

std::string set_chart(const std::vector<std::string>& args, scene& s)
{
    chart_scene chart;
    for (std::size_t i = 1; i < args.size(); i++) {
        if (!chart_has_part(args[i]))
            return "the chart has no part \"" + args[i] +
                   "\": corner0 to corner3, red, green, blue, flare0 to flare3, lines0 to lines4, jump";
        chart.without.push_back(args[i]);
    }
    s.base = chart;
    return {};
}

std::string set_tilt(const std::vector<std::string>& args, scene& s)
{
    double degrees;
    char rest;
    if (args.size() != 2 || std::sscanf(args[1].c_str(), "%lf%c", &degrees, &rest) != 1 ||
        !(std::fabs(degrees) <= 360))
        return "tilt DEGREES is wanted, at most 360 either way";
    s.base = tilt_scene{degrees};
    return {};
}

std::string set_file(const request& rq, const std::vector<std::string>& args, scene& s)
{
    picture_file file;
    file.path = request_file(rq, args[0]);
    if (args.size() == 2) {
        char rest;
        file.raw = true;
        if (std::sscanf(args[1].c_str(), "%ux%u%c", &file.width, &file.height, &rest) != 2)
            return "FILE WIDTHxHEIGHT is wanted";
    } else if (args.size() != 1 || !args[0].ends_with(".png")) {
        return "flat, chart, tilt, box, shade, FILE.png or FILE WIDTHxHEIGHT is wanted";
    }
    if (std::string wrong = picture_file_read(file); !wrong.empty())
        return wrong;
    s.base = std::move(file);
    return {};
}

std::string read_box(const std::vector<std::string>& args, layer& l)
{
    constexpr std::int64_t far = 1'000'000;
    std::size_t at = 1;
    const auto x = take(args, at, -far, far), y = take(args, at, -far, far);
    const auto width = take(args, at, 1, far), height = take(args, at, 1, far), luma = take(args, at, 0, 255);
    const bool coloured = args.size() > at;
    const auto u = coloured ? take(args, at, 0, 255) : std::nullopt;
    const auto v = coloured ? take(args, at, 0, 255) : std::nullopt;
    if (!x || !y || !width || !height || !luma || (coloured && (!u || !v)) || at != args.size())
        return "box X Y W H Y [U V] is wanted, brightness and colours 0 to 255";
    canvas_box box = {*x, *y, *width, *height, static_cast<std::uint8_t>(*luma), {}, {}};
    if (coloured) {
        box.u = static_cast<std::uint8_t>(*u);
        box.v = static_cast<std::uint8_t>(*v);
    }
    l.what = box;
    return {};
}

std::string read_shade(const std::vector<std::string>& args, layer& l)
{
    constexpr std::int64_t far = 1'000'000;
    std::size_t at = 1;
    const auto x = take(args, at, -far, far), y = take(args, at, -far, far);
    const auto radius = take(args, at, 1, far), depth = take(args, at, 0, 1000);
    if (!x || !y || !radius || !depth || at != args.size())
        return "shade X Y R PERMILLE is wanted, at most 1000";
    l.what = shade{static_cast<double>(*x), static_cast<double>(*y), static_cast<double>(*radius),
                   static_cast<double>(*depth) / 1000};
    return {};
}

// "box ...; ..." or "shade ...; ...": all of them, or none when one is wrong.
std::string add_layers(const std::string& kind, std::string_view text, scene& s)
{
    std::vector<layer> fresh;
    bool first = true;
    for (const std::string_view part : split(text, ';')) {
        std::vector<std::string> args = words(part);
        if (!first)
            args.insert(args.begin(), kind);
        first = false;
        layer l;
        for (const std::string& word : args)
            l.text += (l.text.empty() ? "" : " ") + word;
        const std::string wrong = kind == "box" ? read_box(args, l) : read_shade(args, l);
        if (!wrong.empty())
            return wrong;
        fresh.push_back(std::move(l));
    }
    s.layers.insert(s.layers.end(), fresh.begin(), fresh.end());
    return {};
}

std::string set_base(const request& rq, const std::vector<std::string>& args, scene& s)
{
    scene fresh;
    const std::string& kind = args[0];
    const std::string wrong = kind == "flat"    ? set_flat(args, fresh)
                              : kind == "chart" ? set_chart(args, fresh)
                              : kind == "tilt"  ? set_tilt(args, fresh)
                                                : set_file(rq, args, fresh);
    if (!wrong.empty())
        return wrong;
    for (const std::string& word : args)
        fresh.text += (fresh.text.empty() ? "" : " ") + word;
    s.base = std::move(fresh.base);
    s.text = std::move(fresh.text);
    s.layers.clear();
    return {};
}

std::string tell(const scene& s)
{
    std::string text = s.text;
    for (const layer& l : s.layers)
        text += "\n" + l.text;
    return text;
}

std::string word_scene(request& rq)
{
    const auto n = rq.args.empty() ? std::nullopt : number(rq.args[0]);
    if (!n || (*n != 1 && *n != 2))
        return "a camera is wanted, 1 or 2";
    const std::lock_guard lock(scenes_mutex);
    scene& s = scenes[*n];
    if (rq.args.size() == 1) {
        rq.answer = tell(s);
        return {};
    }
    s.drawn.clear();
    const std::string& kind = rq.args[1];
    if (kind == "box" || kind == "shade")
        return add_layers(kind, std::string_view(rq.rest).substr(rq.rest.find(kind)), s);
    return set_base(rq, {rq.args.begin() + 1, rq.args.end()}, s);
}

} // namespace

scene_picture scene_draw(unsigned camera, std::uint32_t width, std::uint32_t height, bool count_up)
{
    const std::lock_guard lock(scenes_mutex);
    scene& s = scenes[camera];
    scene_picture& drawn = s.drawn[{width, height, count_up}];
    if (drawn == nullptr) {
        canvas c(width, height);
        if (count_up)
            paint_count(c);
        else
            paint_scene(c, s);
        for (std::size_t i = 0; s.lines.fault != scene_data_lines::good && i < std::size_t{width} * height;
             i++)
            c.bytes[i] = carried(c.bytes[i], s.lines);
        drawn = std::make_shared<const std::vector<std::uint8_t>>(std::move(c.bytes));
    }
    return drawn;
}

void scene_set_data(unsigned camera, const scene_data_lines& lines)
{
    const std::lock_guard lock(scenes_mutex);
    scenes[camera].lines = lines;
    scenes[camera].drawn.clear();
}

void scene_attach()
{
    word_add("scene",
             "N [flat Y [U V]|chart [PART...]|tilt DEGREES|FILE.png|FILE WxH|box X Y W H Y [U V] [; ...]"
             "|shade X Y R PERMILLE [; ...]]",
             "what camera N, 1 main or 2 sub, sees", word_scene);
    conf_add_word("scene");
}

} // namespace phone
