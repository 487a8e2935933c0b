// Numbers that a script hands over: doubles of any value, cut to integers.
#pragma once

#include <cstdint>
#include <lua.hpp>

// What can't be an integer is 0; what is out of range wraps.
inline std::uint32_t luigi_cut(lua_Number n)
{
    constexpr lua_Number limit = 9.0e18;
    return n > -limit && n < limit ? static_cast<std::uint32_t>(static_cast<std::int64_t>(n)) : 0;
}

inline std::uint32_t luigi_uint(lua_State* L, int index)
{
    return luigi_cut(luaL_checknumber(L, index));
}

// Raises the error unless exactly `count` arguments were given.
inline void luigi_count(lua_State* L, int count)
{
    if (lua_gettop(L) != count)
        luaL_error(L, "Wrong number of arguments");
}
