// What the standard libraries of a script reach of the system, sent through the platform: files, shell lines,
// libraries of scripts. A script may name a path as the phone does, or begin it with luigi_scripts_path.
#pragma once

#include <lua.hpp>
#include <string>

// Replaces those functions of the opened libraries that would go past the platform. os.exit doesn't end the
// process: it raises an error, which ends the menu.
void luigi_os_register(lua_State* L);

// Loads a script as luaL_loadfilex does, under its path of the phone: the chunk or a message is on the stack.
int luigi_os_load(lua_State* L, const char* path, const char* mode);

// The folder of the scripts as Lua's own loader has to be told it, with a slash at the end.
std::string luigi_os_scripts_path(const char* path);

// A text with the places of the platform put back into the phone's own paths.
std::string luigi_os_phone_paths(std::string text);
