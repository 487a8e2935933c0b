#include "luigi_screen.h"

#include <cstdint>

#include "luigi_args.h"
#include "screen/screen.h"

namespace {

// A function without arguments that gives a number.
template <auto Get>
int number_of(lua_State* L)
{
    luigi_count(L, 0);
    lua_pushnumber(L, static_cast<lua_Number>(Get()));
    return 1;
}

int start_panel()
{
    return screen_start(0, 0);
}

int put_pixel(lua_State* L)
{
    luigi_count(L, 3);
    screen_put_pixel(luigi_uint(L, 1), luigi_uint(L, 2), luigi_uint(L, 3));
    return 0;
}

int print(lua_State* L)
{
    luigi_count(L, 4);
    screen_print(luaL_checkstring(L, 1), luigi_uint(L, 2), luigi_uint(L, 3), luigi_uint(L, 4));
    return 0;
}

// A coordinate of a line has 16 bits and a sign.
std::uint32_t coordinate(lua_State* L, int index)
{
    return static_cast<std::uint32_t>(static_cast<std::int16_t>(luigi_uint(L, index)));
}

int line(lua_State* L)
{
    luigi_count(L, 5);
    screen_line(coordinate(L, 1), coordinate(L, 2), coordinate(L, 3), coordinate(L, 4), luigi_uint(L, 5));
    return 0;
}

int rectangle(lua_State* L)
{
    luigi_count(L, 7);
    screen_rectangle(luigi_uint(L, 1), luigi_uint(L, 2), luigi_uint(L, 3), luigi_uint(L, 4), luigi_uint(L, 5),
                     luigi_uint(L, 6), luigi_uint(L, 7) != 0 ? 1 : 0);
    return 0;
}

// clang-format off
constexpr luaL_Reg screen_functions[] = {
    { "init",            number_of<start_panel> },
    { "update",          number_of<screen_invalidate> },
    { "get_width",       number_of<screen_width> },
    { "get_height",      number_of<screen_height> },
    { "get_char_width",  number_of<screen_char_width> },
    { "get_char_height", number_of<screen_char_height> },
    { "put_pixel",       put_pixel },
    { "print",           print },
    { "line",            line },
    { "rectangle",       rectangle },
    {},
};
// clang-format on

} // namespace

int luigi_screen_open(lua_State* L)
{
    luaL_newlib(L, screen_functions);
    return 1;
}
