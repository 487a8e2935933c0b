#include "luigi_canvas.h"

namespace {

luigi_custom* to_custom(luigi_canvas* p_canvas)
{
    return reinterpret_cast<luigi_custom*>(p_canvas);
}

void push_handler(lua_State* L, luigi_canvas* p_me, int ref)
{
    luaL_checkstack(L, 8, "event");
    luigi_gc_fetch(L, p_me, ref);
}

void custom_draw(lua_State* L, luigi_canvas* p_me)
{
    const int ref = to_custom(p_me)->paint_ref;
    if (ref == LUIGI_NO_REF)
        return;
    push_handler(L, p_me, ref);
    lua_call(L, 0, 0);
}

int custom_event(lua_State* L, luigi_canvas* p_canvas, const luigi_message* p_msg)
{
    const luigi_custom* const p_me = to_custom(p_canvas);
    const bool touch = p_msg->type == LUIGI_MSG_TOUCH && p_me->touch_ref != LUIGI_NO_REF;
    const bool key = p_msg->type == LUIGI_MSG_KEY && p_me->key_ref != LUIGI_NO_REF;
    const bool user = p_msg->type == LUIGI_MSG_USER && p_me->user_ref != LUIGI_NO_REF;
    if (touch) {
        push_handler(L, p_canvas, p_me->touch_ref);
        lua_pushnumber(L, static_cast<lua_Number>(p_msg->a));
        lua_pushnumber(L, p_msg->b);
        lua_pushnumber(L, p_msg->c);
        lua_call(L, 3, 0);
    } else if (key) {
        push_handler(L, p_canvas, p_me->key_ref);
        lua_pushnumber(L, static_cast<lua_Number>(p_msg->a));
        lua_pushnumber(L, p_msg->b);
        lua_call(L, 2, 0);
    } else if (user) {
        push_handler(L, p_canvas, p_me->user_ref);
        lua_call(L, 0, 0);
    }
    return touch || key || user ? 1 : 0;
}

int custom_new(lua_State* L)
{
    luigi_canvas* const p_canvas =
        luigi_canvas_create(L, sizeof(luigi_custom), LUIGI_TYPE_CANVAS | LUIGI_TYPE_CUSTOM);
    p_canvas->draw = custom_draw;
    p_canvas->event = custom_event;
    luigi_custom* const p_me = to_custom(p_canvas);
    p_me->paint_ref = LUIGI_NO_REF;
    p_me->touch_ref = LUIGI_NO_REF;
    p_me->key_ref = LUIGI_NO_REF;
    p_me->user_ref = LUIGI_NO_REF;
    return 1;
}

template <auto Ref>
int custom_set_event(lua_State* L)
{
    luigi_canvas* const p_me = luigi_checktype(L, 1, LUIGI_TYPE_CUSTOM);
    luaL_checktype(L, 2, LUA_TFUNCTION);
    lua_pushvalue(L, 2);
    const int old_ref = to_custom(p_me)->*Ref;
    to_custom(p_me)->*Ref = luigi_gc_retain(L, p_me);
    luigi_gc_release(L, p_me, old_ref);
    return 0;
}

// clang-format off
constexpr luaL_Reg custom_functions[] = {
    { "new",                    custom_new },
    { "set_event_draw",         custom_set_event<&luigi_custom::paint_ref> },
    { "set_event_touch",        custom_set_event<&luigi_custom::touch_ref> },
    { "set_event_key",          custom_set_event<&luigi_custom::key_ref> },
    { "set_event_user_defined", custom_set_event<&luigi_custom::user_ref> },
    {},
};
// clang-format on

} // namespace

void luigi_custom_register(lua_State* L)
{
    lua_newtable(L);
    luaL_setfuncs(L, luigi_canvas_functions, 0);
    luaL_setfuncs(L, custom_functions, 0);
    lua_setglobal(L, "custom");
}
