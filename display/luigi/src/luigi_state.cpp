#include "luigi_state.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <lua.hpp>
#include <string>
#include <string_view>

#include "cfg/cfg.h"
#include "luigi_canvas.h"
#include "luigi_config.h"
#include "luigi_os.h"
#include "luigi_parcel.h"
#include "luigi_screen.h"
#include "tmr/tmr.h"

std::atomic<int> luigi_stops_wanted;

namespace {

constexpr std::size_t MOST_MEMORY = std::size_t{128} << 20; // of a menu; more is an error of the script
constexpr int HOOK_PERIOD = 100'000;                        // instructions
constexpr std::uint32_t STOP_PATIENCE_US = 60'000'000;

lua_State* L;
std::size_t memory_used;

// When the script that is running was first seen to run on though a stop is wanted; 0 if it wasn't.
std::uint64_t runs_on_since;
bool ended_for_stop;

void (*print_watcher)(std::string_view);

// "file:line: " of the innermost function of a script that runs; empty when there is none.
using place_text = std::array<char, LUA_IDSIZE + 16>;
place_text memory_place; // where memory was refused last

place_text running_place(lua_State* state)
{
    place_text place{};
    lua_Debug ar;
    for (int level = 0; place[0] == '\0' && lua_getstack(state, level, &ar) != 0; level++)
        if (lua_getinfo(state, "Sl", &ar); ar.currentline > 0)
            std::snprintf(place.data(), place.size(), "%s:%d: ", ar.short_src, ar.currentline);
    return place;
}

// Lua's own messages begin with "file:line:".
bool has_place(const char* text)
{
    const char* const p = std::strchr(text, ':');
    const std::size_t digits = p != nullptr ? std::strspn(p + 1, "0123456789") : 0;
    return digits > 0 && p[1 + digits] == ':';
}

void* allocate(void*, void* p, std::size_t old_size, std::size_t size)
{
    const std::size_t old = p != nullptr ? old_size : 0; // without a block it tells the kind of object
    const bool too_much = size > old && memory_used + (size - old) > MOST_MEMORY;
    void* p_new = nullptr;
    if (size == 0) {
        std::free(p);
    } else if (too_much || (p_new = std::realloc(p, size)) == nullptr) {
        memory_place = L != nullptr ? running_place(L) : place_text{};
        return nullptr;
    }
    memory_used += size - old;
    return p_new;
}

void check_stop(lua_State* state, lua_Debug*)
{
    if (luigi_stops_wanted == 0)
        return;
    const std::uint64_t now = tmr_get64();
    if (runs_on_since == 0)
        runs_on_since = now;
    else if (now - runs_on_since > STOP_PATIENCE_US) {
        ended_for_stop = true;
        // A pcall of the script's own may catch it, so it comes again with the next instruction.
        lua_sethook(state, check_stop, LUA_MASKCOUNT, 1);
        lua_sethook(L, check_stop, LUA_MASKCOUNT, 1);
        luaL_where(state, 0);
        lua_pushliteral(state, "the script doesn't return, and the menu was to stop");
        lua_concat(state, 2);
        lua_error(state);
    }
}

// A message of any error value, with its place.
int to_message(lua_State* state)
{
    const char* const text = luaL_tolstring(state, 1, nullptr);
    if (!has_place(text)) {
        lua_pushstring(state, running_place(state).data());
        lua_insert(state, -2);
        lua_concat(state, 2);
    }
    return 1;
}

int panic(lua_State*)
{
    return 0;
}

// What tostring would say, where that needs no code of the script's; else the kind of value.
std::string plain_text(lua_State* state, int index)
{
    char number[64];
    switch (lua_type(state, index)) {
    case LUA_TSTRING:
        return lua_tostring(state, index);
    case LUA_TNUMBER:
        std::snprintf(number, sizeof number, LUA_NUMBER_FMT, lua_tonumber(state, index));
        return number;
    case LUA_TBOOLEAN:
        return lua_toboolean(state, index) != 0 ? "true" : "false";
    default:
        return luaL_typename(state, index);
    }
}

// A script may print, and on the phone nobody reads it.
int silent_print(lua_State* state)
{
    luaL_checktype(state, 1, LUA_TSTRING);
    if (print_watcher == nullptr)
        return 0;
    std::string text = plain_text(state, 1);
    for (int i = 2; i <= lua_gettop(state); i++)
        text += "\t" + plain_text(state, i);
    print_watcher(text);
    return 0;
}

// Runs `fn(arg)` protected, on an empty stack. On an error `error` is the message.
bool run_protected(lua_CFunction fn, void* arg, std::string& error)
{
    runs_on_since = 0;
    ended_for_stop = false;
    lua_sethook(L, check_stop, LUA_MASKCOUNT, HOOK_PERIOD);
    lua_settop(L, 0);
    lua_pushcfunction(L, to_message);
    lua_pushcfunction(L, fn);
    lua_pushlightuserdata(L, arg);
    const int status = lua_pcallk(L, 1, 0, 1, 0, nullptr);
    if (status != LUA_OK) {
        const char* const text =
            lua_type(L, -1) == LUA_TSTRING ? lua_tostring(L, -1) : "an error without a text";
        const char* const place = status == LUA_ERRMEM ? memory_place.data() : ""; // no handler for those
        error = luigi_os_phone_paths(std::string(place) + text);
    }
    lua_settop(L, 0);
    return status == LUA_OK;
}

// `qat` to another instance where one is configured, otherwise to this one.
void register_qat(lua_State* state)
{
    const cfg_item* const p_ip = cfg_find("luigi", "net_cmd_ip");
    const cfg_item* const p_port = cfg_find("luigi", "net_cmd_port");
    if (p_ip == nullptr || p_port == nullptr)
        luigi_parcel_cmd_register(state);
    else if (luigi_parcel_net_connect(reinterpret_cast<const char*>(p_ip->data),
                                      static_cast<int>(p_port->data)) == 0)
        luigi_parcel_net_cmd_register(state);
}

void prepare(lua_State* state)
{
    luaL_openlibs(state);
    luigi_os_register(state);
    luaL_requiref(state, "screen", luigi_screen_open, 1);
    luaL_requiref(state, "taboret", luigi_taboret_open, 1);
    lua_settop(state, 0);
    lua_register(state, "print", silent_print);
    luigi_config_init();
    lua_pushstring(state, luigi_os_scripts_path(luigi_config.scripts_path).c_str());
    lua_setglobal(state, "luigi_scripts_path");
    luigi_canvas_register(state);
    luigi_custom_register(state);
    luigi_label_register(state);
    luigi_button_register(state);
    luigi_taboret_init();
    register_qat(state);
}

// Argument: the script's path. What the script returns is dropped, so that handlers find an empty stack.
int run_script(lua_State* state)
{
    const auto* const path = static_cast<const char*>(lua_touserdata(state, 1));
    if (luigi_os_load(state, path, nullptr) != LUA_OK)
        return lua_error(state);
    lua_call(state, 0, 0);
    return 0;
}

int prepare_and_run(lua_State* state)
{
    auto* const path = lua_touserdata(state, 1);
    prepare(state);
    lua_settop(state, 0);
    lua_pushlightuserdata(state, path);
    return run_script(state);
}

struct event_call {
    const luigi_message* p_msg;
    int taken;
};

int pass_event(lua_State* state)
{
    auto* const p_call = static_cast<event_call*>(lua_touserdata(state, 1));
    lua_settop(state, 0);
    p_call->taken = luigi_pass_event(state, p_call->p_msg);
    return 0;
}

int update(lua_State* state)
{
    lua_settop(state, 0);
    luigi_taboret_update(state);
    return 0;
}

void* as_argument(const char* path)
{
    return const_cast<char*>(path);
}

} // namespace

bool luigi_state_exists()
{
    return L != nullptr;
}

void luigi_watch_print(void (*fn)(std::string_view text))
{
    print_watcher = fn;
}

bool luigi_state_awaits_stop()
{
    return ended_for_stop;
}

void luigi_state_command_done()
{
    runs_on_since = 0;
}

bool luigi_state_start(const char* path, std::string& error)
{
    memory_used = 0;
    L = lua_newstate(allocate, nullptr);
    if (L == nullptr) {
        error = "not enough memory";
        return false;
    }
    lua_atpanic(L, panic);
    if (run_protected(prepare_and_run, as_argument(path), error))
        return true;
    luigi_state_close();
    return false;
}

bool luigi_state_stop(const char* path, std::string& error)
{
    return run_protected(run_script, as_argument(path), error);
}

void luigi_state_close()
{
    runs_on_since = 0;
    if (L != nullptr)
        lua_close(L);
    L = nullptr;
}

int luigi_state_event(const luigi_message& msg, std::string& error)
{
    event_call call{&msg, 0};
    return run_protected(pass_event, &call, error) ? call.taken : -1;
}

bool luigi_state_update(std::string& error)
{
    return run_protected(update, nullptr, error);
}
