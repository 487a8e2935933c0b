#include "luigi_parcel.h"

#include <cstdlib>
#include <cstring>
#include <iterator>
#include <mutex>
#include <thread>
#include <utility>

#include "dcp/dcp.h"
#include "heap/heap.h"
#include "luigi_state.h"

namespace {

// By status of the parser; others are unknown.
constexpr const char* status_words[] = {"OK", "ERROR", "SYNTAX", "NOT FOUND", "BLOCKED"};

constexpr std::size_t SHORT_LINE = 512; // what is longer goes through the heap

// The pieces of the response, one behind the other. Only what is printed by a command's own thread while it
// runs counts: a late report of another thread would be taken for the answer of the next command.
std::mutex chain_mutex; // guards all below
heap_ptr<char> chain;
std::size_t chain_len;
std::size_t chain_size;
std::thread::id chain_thread;

bool make_room(std::size_t len)
{
    if (len <= chain_size - chain_len)
        return true;
    const std::size_t size = 2 * (chain_len + len) + 1024;
    auto* const p = static_cast<char*>(std::realloc(chain.get(), size));
    if (p == nullptr)
        return false;
    [[maybe_unused]] const char* const moved = chain.release();
    chain.reset(p);
    chain_size = size;
    return true;
}

void append(const void* p, std::size_t len)
{
    std::lock_guard lock(chain_mutex);
    if (chain_thread != std::this_thread::get_id() || len == 0 || !make_room(len))
        return;
    std::memcpy(chain.get() + chain_len, p, len);
    chain_len += len;
}

void luigi_parcel_command_response(dcp_client*, int, int, const char* text)
{
    append(text, std::strlen(text));
}

void luigi_parcel_bin_rx(dcp_client*, void*, std::size_t, dcp_bin_cb, void*) {}

void luigi_parcel_bin_tx(dcp_client*, const void* buf, std::size_t size, dcp_bin_cb cb, void* arg)
{
    append(buf, size);
    if (cb != nullptr)
        cb(2, arg);
}

dcp_client luigi_parcel_dcp_clnt = {
    .id = -1,
    .dspl_fn = luigi_parcel_command_response,
    .bin_rx = luigi_parcel_bin_rx,
    .bin_tx = luigi_parcel_bin_tx,
    .nm = "luigi",
};
int luigi_parcel_dcp_id = -1;

void set_thread(std::thread::id id)
{
    std::lock_guard lock(chain_mutex);
    chain_thread = id;
}

// The parser changes the line in place, so it gets a copy.
int parse_copy(const char* line, std::size_t len)
{
    char on_stack[SHORT_LINE];
    heap_ptr<char> on_heap;
    char* p = on_stack;
    if (len >= sizeof on_stack) {
        on_heap = heap_alloc<char>(len + 1);
        p = on_heap.get();
    }
    if (p == nullptr)
        return DCP_ERROR;
    std::memcpy(p, line, len + 1);
    set_thread(std::this_thread::get_id());
    const int status = dcp_parse(luigi_parcel_dcp_id, p);
    set_thread({});
    return status;
}

// The gathered text as a Lua string; nil when there is none. A string may set off the collector and so a
// script's own code, which may run a command itself: the text is taken out first.
void push_response(lua_State* L)
{
    std::unique_lock lock(chain_mutex);
    heap_ptr<char> text(chain.release());
    const std::size_t len = std::exchange(chain_len, 0);
    const std::size_t size = std::exchange(chain_size, 0);
    lock.unlock();
    if (len > 0)
        lua_pushlstring(L, text.get(), len);
    else
        lua_pushnil(L);
    lock.lock();
    if (chain == nullptr) {
        chain = std::move(text); // serves the next answer
        chain_size = size;
    }
}

int luigi_parcel_cmd_execute(lua_State* L)
{
    std::size_t len;
    const char* const line = luaL_checklstring(L, 1, &len);
    const int status = parse_copy(line, len);
    luigi_state_command_done();
    const bool known = status >= 0 && static_cast<std::size_t>(status) < std::size(status_words);
    lua_pushstring(L, known ? status_words[status] : "UNKNOWN");
    // The text of another status stays, and comes with the next answer.
    if (status == DCP_OK || status == DCP_ERROR)
        push_response(L);
    else
        lua_pushnil(L);
    return 2;
}

} // namespace

void luigi_parcel_cmd_register(lua_State* L)
{
    if (luigi_parcel_dcp_id < 0) {
        luigi_parcel_dcp_id = dcp_clnt_add(&luigi_parcel_dcp_clnt);
        luigi_parcel_dcp_clnt.id = luigi_parcel_dcp_id;
    }
    lua_register(L, "qat", luigi_parcel_cmd_execute);
}
