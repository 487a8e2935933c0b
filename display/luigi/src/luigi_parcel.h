// The function `qat` of the scripts: carries out a command line as the station would type it and gives its
// status and text. The local form runs it in this process, as a client of the parser; the network form sends
// it to another instance over TCP.
#pragma once

#include <lua.hpp>

// Sets the global `qat` to the local form.
void luigi_parcel_cmd_register(lua_State* L);

// Connects to another instance: 0 when that was done or when the address can't be looked up (then there is no
// connection, and every command gives nil), 1 when it is refused.
int luigi_parcel_net_connect(const char* ip, int port);

// Sets the global `qat` to the network form.
void luigi_parcel_net_cmd_register(lua_State* L);
