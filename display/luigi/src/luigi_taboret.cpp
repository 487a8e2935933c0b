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

struct box {
    std::uint32_t x;
    std::uint32_t y;
    std::uint32_t w;
    std::uint32_t h;
};

box box_of(const luigi_canvas* p_me)
{
    return {luigi_get_x(p_me), luigi_get_y(p_me), luigi_get_width(p_me), luigi_get_height(p_me)};
}

void fill(const box& b, std::uint32_t colour)
{
    if (b.w > 0 && b.h > 0)
        screen_rectangle(b.x, b.y, b.w, b.h, colour, colour, 1);
}

// A child that covers its whole box, inside `b`'s border and below row `y`.
bool covers_part(const luigi_canvas* p_child, const box& c, const box& b, std::uint32_t y)
{
    const bool paints = (p_child->type & LUIGI_TYPE_CUSTOM) == 0;
    const std::uint64_t right = std::uint64_t{c.x} + c.w;
    const std::uint64_t bottom = std::uint64_t{c.y} + c.h;
    return paints && c.w > 0 && c.h > 0 && c.x > b.x && c.y >= y && right < std::uint64_t{b.x} + b.w &&
           bottom < std::uint64_t{b.y} + b.h;
}

// A plain canvas without what its children will cover: pages are mostly buttons, one below the other.
void draw_around_children(const luigi_canvas* p_me)
{
    const box b = box_of(p_me);
    const std::uint32_t colour = p_me->back_color;
    screen_rectangle(b.x, b.y, b.w, b.h, p_me->border_color, colour, 0);
    if (b.w < 3 || b.h < 3)
        return;
    const std::uint32_t left = b.x + 1;
    const std::uint32_t width = b.w - 2;
    std::uint32_t y = b.y + 1;
    for (const luigi_canvas* p = p_me->first_child; p != nullptr; p = p->next_sibling) {
        const box c = box_of(p);
        if (!covers_part(p, c, b, y))
            continue;
        fill({left, y, width, c.y - y}, colour);
        fill({left, c.y, c.x - left, c.h}, colour);
        fill({c.x + c.w, c.y, left + width - c.x - c.w, c.h}, colour);
        y = c.y + c.h;
    }
    fill({left, y, width, b.y + b.h - 1 - y}, colour);
}

// Parents paint under their children. Handlers may add children to a tree on its way, but none goes away
// while one of the tree is held.
void taboret_draw(lua_State* L, luigi_canvas* p_me)
{
    const bool on_screen = luigi_get_x(p_me) < screen_width() && luigi_get_y(p_me) < screen_height();
    if (p_me->draw == luigi_canvas_draw_default && p_me->first_child != nullptr && on_screen)
        draw_around_children(p_me);
    else
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
    {},
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
    const std::lock_guard drawing(screen_drawing);
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
