// C functions of scripts that do the least: what a function of the menu's libraries is held against.
#include <lua.hpp>

extern "C" int bare_number(lua_State* L)
{
    lua_pushnumber(L, 1080);
    return 1;
}

extern "C" int bare_three(lua_State* L)
{
    luaL_checknumber(L, 1);
    luaL_checknumber(L, 2);
    luaL_checknumber(L, 3);
    return 0;
}

extern "C" int bare_texts(lua_State* L)
{
    luaL_checkstring(L, 1);
    lua_pushstring(L, "OK");
    lua_pushstring(L, "CASE:false");
    return 2;
}
