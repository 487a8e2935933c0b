#include "luigi_canvas.h"

#include "luigi_config.h"

namespace {

bool is_inside(const luigi_canvas* p_me, std::uint32_t x, std::uint32_t y)
{
    // A difference of unsigned numbers: what is left of the edge, or above it, is huge.
    return x - luigi_get_x(p_me) < luigi_get_width(p_me) && y - luigi_get_y(p_me) < luigi_get_height(p_me);
}

// The handler may take the button's page away; the button itself stays until the handler has returned.
int button_event(lua_State* L, luigi_canvas* p_canvas, const luigi_message* p_msg)
{
    auto* const p_me = reinterpret_cast<luigi_button*>(p_canvas);
    const auto x = static_cast<std::uint32_t>(p_msg->a);
    const std::uint32_t y = p_msg->b;
    if (p_msg->type != LUIGI_MSG_TOUCH || p_msg->c != LUIGI_TOUCH_PRESSED || !is_inside(p_canvas, x, y))
        return 0;
    luigi_push(L, p_canvas);
    luigi_gc_fetch(L, p_canvas, p_me->handler_ref);
    lua_pushlightuserdata(L, p_canvas);
    lua_pushnumber(L, x);
    lua_pushnumber(L, y);
    const std::uint32_t color = p_me->label.text_color;
    const bool shows_press = p_me->text_color_pressed != color;
    if (shows_press) {
        p_me->label.text_color = p_me->text_color_pressed;
        luigi_taboret_update(L);
    }
    lua_call(L, 3, 0);
    p_me->label.text_color = color;
    lua_pop(L, 1);
    return 1;
}

int button_new(lua_State* L)
{
    luaL_checkstring(L, 1);
    luaL_checktype(L, 2, LUA_TFUNCTION);
    luigi_canvas* const p_canvas = luigi_canvas_create(
        L, sizeof(luigi_button), LUIGI_TYPE_CANVAS | LUIGI_TYPE_LABEL | LUIGI_TYPE_BUTTON);
    auto* const p_me = reinterpret_cast<luigi_button*>(p_canvas);
    luigi_label_init(L, &p_me->label);
    p_canvas->padding = luigi_config.button_padding;
    p_canvas->back_color = luigi_config.button_back_color;
    p_canvas->border_color = luigi_config.button_border_color;
    p_canvas->event = button_event;
    p_me->text_color_pressed = luigi_config.button_text_color_pressed;
    lua_pushvalue(L, 2);
    p_me->handler_ref = luigi_gc_retain(L, p_canvas);
    return 1;
}

} // namespace

void luigi_button_register(lua_State* L)
{
    lua_newtable(L);
    luaL_setfuncs(L, luigi_canvas_functions, 0);
    luaL_setfuncs(L, luigi_label_functions, 0);
    lua_pushcfunction(L, button_new);
    lua_setfield(L, -2, "new");
    lua_setglobal(L, "button");
}
