#include "luigi_canvas.h"

#include <cstddef>

#include "luigi_args.h"
#include "luigi_config.h"
#include "screen/screen.h"

namespace {

constexpr std::uint32_t SIZE_DEFAULT = 50;
constexpr std::uint32_t WHITE = 0xFFFFFF;

// Trees that are deeper than any page needs would eat the stack of the walks.
constexpr int MOST_LEVELS = 64;

// The key in the registry of the table of all widgets, from address to userdata, with weak values.
constexpr char LIVE_WIDGETS = 0;

// Pushes that table.
void push_live(lua_State* L)
{
    if (lua_rawgetp(L, LUA_REGISTRYINDEX, &LIVE_WIDGETS), !lua_isnil(L, -1))
        return;
    lua_pop(L, 1);
    lua_newtable(L);
    lua_createtable(L, 0, 1);
    lua_pushliteral(L, "v");
    lua_setfield(L, -2, "__mode");
    lua_setmetatable(L, -2);
    lua_pushvalue(L, -1);
    lua_rawsetp(L, LUA_REGISTRYINDEX, &LIVE_WIDGETS);
}

// A widget's width, or height, less its padding on both sides.
std::uint32_t inner(std::uint32_t size, std::uint32_t padding)
{
    return size > std::uint64_t{2} * padding ? size - 2 * padding : size;
}

int levels_above(const luigi_canvas* p_me)
{
    int levels = 0;
    for (; p_me->parent != nullptr; p_me = p_me->parent)
        levels++;
    return levels;
}

int levels_below(const luigi_canvas* p_me)
{
    int most = 0;
    for (const luigi_canvas* p = p_me->first_child; p != nullptr; p = p->next_sibling) {
        const int levels = levels_below(p) + 1;
        most = levels > most ? levels : most;
    }
    return most;
}

bool is_above(const luigi_canvas* p_me, const luigi_canvas* p_other)
{
    for (; p_other != nullptr; p_other = p_other->parent)
        if (p_other == p_me)
            return true;
    return false;
}

int canvas_new(lua_State* L)
{
    luigi_canvas_create(L, sizeof(luigi_canvas), LUIGI_TYPE_CANVAS);
    return 1;
}

// Each holds the other: the parent draws its children, a child asks its parent where it is.
int canvas_add(lua_State* L)
{
    luigi_canvas* const p_parent = luigi_checktype(L, 1, LUIGI_TYPE_CANVAS);
    luigi_canvas* const p_child = luigi_checktype(L, 2, LUIGI_TYPE_CANVAS);
    if (p_child->parent != nullptr || is_above(p_child, p_parent))
        return 0;
    if (levels_above(p_parent) + levels_below(p_child) + 2 > MOST_LEVELS)
        return luaL_error(L, "widgets nested more than %d deep", MOST_LEVELS);
    luigi_push(L, p_child);
    luigi_gc_retain(L, p_parent);
    luigi_push(L, p_parent);
    luigi_gc_retain(L, p_child);
    p_child->parent = p_parent;
    if (p_parent->last_child != nullptr)
        p_parent->last_child->next_sibling = p_child;
    else
        p_parent->first_child = p_child;
    p_parent->last_child = p_child;
    return 0;
}

int canvas_draw(lua_State* L)
{
    luigi_canvas* const p_me = luigi_checktype(L, 1, LUIGI_TYPE_CANVAS);
    p_me->draw(L, p_me);
    return 0;
}

int canvas_set_position(lua_State* L)
{
    luigi_canvas* const p_me = luigi_checktype(L, 1, LUIGI_TYPE_CANVAS);
    p_me->x = luigi_uint(L, 2);
    p_me->y = luigi_uint(L, 3);
    p_me->placed = 1;
    return 0;
}

int canvas_set_size(lua_State* L)
{
    luigi_canvas* const p_me = luigi_checktype(L, 1, LUIGI_TYPE_CANVAS);
    p_me->width = luigi_uint(L, 2);
    p_me->height = luigi_uint(L, 3);
    p_me->placed = 1;
    return 0;
}

template <auto Field>
int canvas_set(lua_State* L)
{
    luigi_checktype(L, 1, LUIGI_TYPE_CANVAS)->*Field = luigi_uint(L, 2);
    return 0;
}

} // namespace

luigi_canvas* luigi_canvas_create(lua_State* L, std::size_t size, std::uint32_t type)
{
    luaL_checkstack(L, 6, "widgets");
    auto* const p_me = static_cast<luigi_canvas*>(lua_newuserdata(L, size));
    __builtin_memset(p_me, 0, size);
    p_me->width = SIZE_DEFAULT;
    p_me->height = SIZE_DEFAULT;
    p_me->padding = luigi_config.canvas_padding;
    p_me->back_color = WHITE;
    p_me->border_color = WHITE;
    p_me->type = type;
    p_me->draw = luigi_canvas_draw_default;
    p_me->get_height = luigi_canvas_get_height_default;
    lua_newtable(L);
    lua_setuservalue(L, -2);
    push_live(L);
    lua_pushvalue(L, -2);
    lua_rawsetp(L, -2, p_me);
    lua_pop(L, 1);
    return p_me;
}

luigi_canvas* luigi_checktype(lua_State* L, int index, std::uint32_t mask)
{
    const void* const p = lua_touserdata(L, index);
    luaL_checkstack(L, 4, "widgets");
    push_live(L);
    lua_rawgetp(L, -1, p);
    auto* const p_me = static_cast<luigi_canvas*>(lua_touserdata(L, -1));
    lua_pop(L, 2);
    if (p == nullptr || p_me == nullptr) {
        luaL_error(L, "%s expected, got %s", "canvas (or inheritage)", luaL_typename(L, index));
        __builtin_unreachable(); // an error of Lua's is thrown
    }
    if ((p_me->type & mask) != mask)
        luaL_error(L, "luigi_type %d expected, got %d", static_cast<int>(mask), static_cast<int>(p_me->type));
    return p_me;
}

void luigi_push(lua_State* L, const luigi_canvas* p_me)
{
    luaL_checkstack(L, 4, "widgets");
    push_live(L);
    lua_rawgetp(L, -1, p_me);
    lua_remove(L, -2);
}

int luigi_gc_retain(lua_State* L, const luigi_canvas* p_me)
{
    luigi_push(L, p_me);
    lua_getuservalue(L, -1);
    lua_pushvalue(L, -3);
    const int ref = luaL_ref(L, -2);
    lua_pop(L, 3);
    return ref;
}

void luigi_gc_release(lua_State* L, const luigi_canvas* p_me, int ref)
{
    luigi_push(L, p_me);
    lua_getuservalue(L, -1);
    luaL_unref(L, -1, ref);
    lua_pop(L, 2);
}

void luigi_gc_fetch(lua_State* L, const luigi_canvas* p_me, int ref)
{
    luigi_push(L, p_me);
    lua_getuservalue(L, -1);
    lua_rawgeti(L, -1, ref);
    lua_replace(L, -3);
    lua_pop(L, 1);
}

std::uint32_t luigi_get_x(const luigi_canvas* p_me)
{
    if (p_me->parent == nullptr)
        return p_me->x;
    return luigi_get_x(p_me->parent) + p_me->x + (p_me->placed != 0 ? 0 : p_me->parent->padding);
}

// A child that isn't placed stands below its elder siblings, placed ones counted too.
std::uint32_t luigi_get_y(const luigi_canvas* p_me)
{
    const luigi_canvas* const p_parent = p_me->parent;
    if (p_parent == nullptr)
        return p_me->y;
    if (p_me->placed != 0)
        return luigi_get_y(p_parent) + p_me->y;
    std::uint32_t y = luigi_get_y(p_parent) + p_parent->padding;
    for (const luigi_canvas* p = p_parent->first_child; p != p_me; p = p->next_sibling)
        y += luigi_get_height(p) + p_parent->padding;
    return y;
}

std::uint32_t luigi_get_width(const luigi_canvas* p_me)
{
    if (p_me->parent == nullptr)
        return screen_width();
    return p_me->placed != 0 ? p_me->width : inner(luigi_get_width(p_me->parent), p_me->parent->padding);
}

std::uint32_t luigi_get_height(const luigi_canvas* p_me)
{
    return p_me->get_height(p_me);
}

std::uint32_t luigi_canvas_get_height_default(const luigi_canvas* p_me)
{
    if (p_me->parent == nullptr)
        return screen_height();
    return p_me->placed != 0 ? p_me->height : luigi_get_height(p_me->parent) >> 2;
}

void luigi_canvas_draw_default(lua_State*, luigi_canvas* p_me)
{
    screen_rectangle(luigi_get_x(p_me), luigi_get_y(p_me), luigi_get_width(p_me), luigi_get_height(p_me),
                     p_me->border_color, p_me->back_color, 1);
}

// clang-format off
const luaL_Reg luigi_canvas_functions[] = {
    { "add",              canvas_add },
    { "draw",             canvas_draw },
    { "set_position",     canvas_set_position },
    { "set_size",         canvas_set_size },
    { "set_padding",      canvas_set<&luigi_canvas::padding> },
    { "set_back_color",   canvas_set<&luigi_canvas::back_color> },
    { "set_border_color", canvas_set<&luigi_canvas::border_color> },
    {},
};
// clang-format on

void luigi_canvas_register(lua_State* L)
{
    lua_newtable(L);
    luaL_setfuncs(L, luigi_canvas_functions, 0);
    lua_pushcfunction(L, canvas_new);
    lua_setfield(L, -2, "new");
    lua_setglobal(L, "canvas");
}
