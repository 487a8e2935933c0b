// The library `screen` of the scripts: the drawing of the panel as it is.
#pragma once

#include <lua.hpp>

int luigi_screen_open(lua_State* L);
