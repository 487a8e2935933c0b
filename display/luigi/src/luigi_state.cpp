#include "luigi_state.h"

#include <cstdlib>
#include <lua.hpp>

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
constexpr std::uint32_t STOP_PATIENCE_US = 2'000'000;

lua_State* L;
std::size_t memory_used;

// When the script that is running was first seen to run on though a stop is wanted; 0 if it wasn't.
std::uint64_t runs_on_since;

void* allocate(void*, void* p, std::size_t old_size, std::size_t size)
{
    const std::size_t old = p != nullptr ? old_size : 0; // without a block it tells the kind of object
    if (size > old && memory_used + (size - old) > MOST_MEMORY)
        return nullptr;
    void* p_new = nullptr;
    if (size == 0)
        std::free(p);
    else if ((p_new = std::realloc(p, size)) == nullptr)
        return nullptr;
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
        luaL_where(state, 0);
        lua_pushliteral(state, "the script doesn't return, and the menu was to stop");
        lua_concat(state, 2);
        lua_error(state);
    }
}

// A message of any error value; what it says of places comes with the phone's own paths.
int to_message(lua_State* state)
{
    luaL_tolstring(state, 1, nullptr);
    return 1;
}

int panic(lua_State*)
{
    return 0;
}

// A script may print, and nobody reads it.
int silent_print(lua_State* state)
{
    luaL_checktype(state, 1, LUA_TSTRING);
    return 0;
}

// Runs `fn(arg)` protected, on an empty stack. On an error `error` is the message.
bool run_protected(lua_CFunction fn, void* arg, std::string& error)
{
    runs_on_since = 0;
    lua_settop(L, 0);
    lua_pushcfunction(L, to_message);
    lua_pushcfunction(L, fn);
    lua_pushlightuserdata(L, arg);
    const bool done = lua_pcallk(L, 1, 0, 1, 0, nullptr) == LUA_OK;
    if (!done) {
        const char* const text =
            lua_type(L, -1) == LUA_TSTRING ? lua_tostring(L, -1) : "an error without a text";
        error = luigi_os_phone_paths(text);
    }
    lua_settop(L, 0);
    return done;
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

bool luigi_state_start(const char* path, std::string& error)
{
    memory_used = 0;
    L = lua_newstate(allocate, nullptr);
    if (L == nullptr) {
        error = "not enough memory";
        return false;
    }
    lua_atpanic(L, panic);
    lua_sethook(L, check_stop, LUA_MASKCOUNT, HOOK_PERIOD);
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
