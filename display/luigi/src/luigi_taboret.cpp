// The stack of top canvases. Only the one on top is drawn and gets events.
#include "luigi_canvas.h"

#include <array>

#include "luigi_args.h"
#include "screen/screen.h"

namespace {

constexpr std::size_t MOST_CANVASES = 32;
constexpr std::uint32_t WHITE = 0xFFFFFF;

struct top_canvas {
    luigi_canvas* p_canvas;
    int ref; // in the registry
};

std::array<top_canvas, MOST_CANVASES> canvas_list;
std::size_t canvas_count;

// A push on a full stack isn't stored.
int taboret_push(lua_State* L)
{
    luigi_canvas* const p_canvas = luigi_checktype(L, 1, LUIGI_TYPE_CANVAS);
    if (canvas_count == canvas_list.size())
        return 0;
    luigi_push(L, p_canvas);
    const int ref = luaL_ref(L, LUA_REGISTRYINDEX);
    canvas_list[canvas_count++] = {p_canvas, ref};
    return 0;
}

int taboret_pop(lua_State* L)
{
    if (canvas_count > 0)
        luaL_unref(L, LUA_REGISTRYINDEX, canvas_list[--canvas_count].ref);
    return 0;
}

int taboret_update(lua_State* L)
{
    luigi_taboret_update(L);
    return 0;
}

// Parents paint under their children. Handlers may add children to a tree on its way, but none goes away
// while one of the tree is held.
void taboret_draw(lua_State* L, luigi_canvas* p_me)
{
    p_me->draw(L, p_me);
    for (luigi_canvas* p = p_me->first_child; p != nullptr; p = p->next_sibling)
        taboret_draw(L, p);
}

// Children before their parent, in the order in which they were added.
int pass_event(lua_State* L, luigi_canvas* p_me, const luigi_message* p_msg)
{
    int taken = 0;
    for (luigi_canvas* p = p_me->first_child; p != nullptr; p = p->next_sibling)
        if ((taken = pass_event(L, p, p_msg)) != 0)
            return taken;
    return p_me->event != nullptr ? p_me->event(L, p_me, p_msg) : taken;
}

// clang-format off
constexpr luaL_Reg taboret_functions[] = {
    { "push",   taboret_push },
    { "pop",    taboret_pop },
    { "update", taboret_update },
    { nullptr,  nullptr },
};
// clang-format on

} // namespace

int luigi_taboret_open(lua_State* L)
{
    luaL_newlib(L, taboret_functions);
    return 1;
}

void luigi_taboret_init()
{
    canvas_count = 0;
}

int luigi_pass_event(lua_State* L, const luigi_message* p_msg)
{
    if (canvas_count == 0)
        return 0;
    luigi_canvas* const p_top = canvas_list[canvas_count - 1].p_canvas;
    luigi_push(L, p_top);
    const int taken = pass_event(L, p_top, p_msg);
    lua_pop(L, 1);
    return taken;
}

void luigi_taboret_update(lua_State* L)
{
    if (canvas_count > 0) {
        luigi_canvas* const p_top = canvas_list[canvas_count - 1].p_canvas;
        luigi_push(L, p_top);
        taboret_draw(L, p_top);
        lua_pop(L, 1);
    } else {
        screen_rectangle(0, 0, screen_width(), screen_height(), WHITE, WHITE, 1);
    }
    screen_invalidate();
}
