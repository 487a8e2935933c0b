#include "luigi_canvas.h"

#include <cstring>
#include <string>

#include "luigi_args.h"
#include "luigi_config.h"
#include "screen/screen.h"

namespace {

// Where the text of a line ends, and where that of the next begins: the spaces at a break aren't shown.
const char* line_end(const luigi_label* p_me, const char* text)
{
    const int end = luigi_label_get_string_checkpoint(p_me, text);
    return end < 0 ? text + std::strlen(text) : text + end;
}

std::uint32_t count_lines(const luigi_label* p_me)
{
    std::uint32_t lines = 1;
    const char* text = p_me->text;
    for (int end; (end = luigi_label_get_string_checkpoint(p_me, text)) >= 0; text += end)
        lines++;
    return lines;
}

std::uint32_t label_get_height(const luigi_canvas* p_canvas)
{
    if (p_canvas->parent == nullptr || p_canvas->placed != 0)
        return luigi_canvas_get_height_default(p_canvas);
    const auto* const p_me = reinterpret_cast<const luigi_label*>(p_canvas);
    return p_canvas->padding + count_lines(p_me) * (screen_char_height() + p_canvas->padding);
}

void set_text(lua_State* L, luigi_label* p_me, int index)
{
    const char* const text = luaL_checkstring(L, index);
    lua_pushvalue(L, index);
    const int old_ref = p_me->text_ref;
    p_me->text_ref = luigi_gc_retain(L, &p_me->canvas);
    p_me->text = text;
    luigi_gc_release(L, &p_me->canvas, old_ref);
}

int label_new(lua_State* L)
{
    luaL_checkstring(L, 1);
    luigi_canvas* const p_canvas =
        luigi_canvas_create(L, sizeof(luigi_label), LUIGI_TYPE_CANVAS | LUIGI_TYPE_LABEL);
    luigi_label_init(L, reinterpret_cast<luigi_label*>(p_canvas));
    return 1;
}

int label_get_text(lua_State* L)
{
    luigi_canvas* const p_me = luigi_checktype(L, 1, LUIGI_TYPE_LABEL);
    luigi_gc_fetch(L, p_me, reinterpret_cast<luigi_label*>(p_me)->text_ref);
    return 1;
}

int label_set_text(lua_State* L)
{
    set_text(L, reinterpret_cast<luigi_label*>(luigi_checktype(L, 1, LUIGI_TYPE_LABEL)), 2);
    return 0;
}

int label_set_text_color(lua_State* L)
{
    luaL_checktype(L, 1, LUA_TUSERDATA);
    reinterpret_cast<luigi_label*>(luigi_checktype(L, 1, LUIGI_TYPE_LABEL))->text_color = luigi_uint(L, 2);
    return 0;
}

} // namespace

void luigi_label_init(lua_State* L, luigi_label* p_me)
{
    p_me->canvas.padding = luigi_config.label_padding;
    p_me->canvas.draw = luigi_label_draw;
    p_me->canvas.get_height = label_get_height;
    p_me->text = "";
    p_me->text_ref = LUIGI_NO_REF;
    set_text(L, p_me, 1);
}

int luigi_label_get_string_checkpoint(const luigi_label* p_me, const char* text)
{
    const std::uint32_t char_width = screen_char_width();
    const std::uint32_t width = luigi_get_width(&p_me->canvas);
    const std::uint64_t both = std::uint64_t{2} * p_me->canvas.padding;
    const std::uint32_t usable = both < width ? width - static_cast<std::uint32_t>(both) : width;
    if (char_width == 0 || usable < char_width)
        return -1;
    // The running width of characters 0 to `end` is (end + 1) * char_width; a line holds at least one.
    std::size_t end = (usable + char_width - 1) / char_width - 1;
    end = end > 0 ? end : 1;
    return strnlen(text, end + 1) > end ? static_cast<int>(end) : -1;
}

void luigi_label_draw(lua_State* L, luigi_canvas* p_canvas)
{
    luigi_canvas_draw_default(L, p_canvas);
    const auto* const p_me = reinterpret_cast<const luigi_label*>(p_canvas);
    const std::uint32_t x = luigi_get_x(p_canvas) + p_canvas->padding;
    std::uint32_t y = luigi_get_y(p_canvas) + p_canvas->padding;
    static std::string line; // of the Lua thread: one buffer for all lines
    for (const char* text = p_me->text; *text != '\0';) {
        const char* const end = line_end(p_me, text);
        line.assign(text, end);
        screen_print(line.c_str(), x, y, p_me->text_color);
        y += screen_char_width() + p_canvas->padding;
        text = end + std::strspn(end, " ");
    }
}

// clang-format off
const luaL_Reg luigi_label_functions[] = {
    { "get_text",       label_get_text },
    { "set_text",       label_set_text },
    { "set_text_color", label_set_text_color },
    {},
};
// clang-format on

void luigi_label_register(lua_State* L)
{
    lua_newtable(L);
    luaL_setfuncs(L, luigi_canvas_functions, 0);
    luaL_setfuncs(L, luigi_label_functions, 0);
    lua_pushcfunction(L, label_new);
    lua_setfield(L, -2, "new");
    lua_setglobal(L, "label");
}
