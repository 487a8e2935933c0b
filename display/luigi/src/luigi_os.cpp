#include "luigi_os.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "plat/plat.h"

namespace {

constexpr const char* TEMPORARY = "/data/lua_"; // and a number
unsigned temporary_count;

// Where the phone's files begin; empty on the phone itself.
std::string host_root()
{
    std::string root = plat_host_path("/");
    while (root.ends_with('/'))
        root.pop_back();
    return root;
}

std::string phone_path(const char* path)
{
    const std::string root = host_root();
    const std::string text = path;
    return !root.empty() && text.starts_with(root + "/") ? text.substr(root.size()) : text;
}

struct file_close {
    void operator()(FILE* f) const { std::fclose(f); }
};

bool read_whole(const std::string& path, std::string& text)
{
    const std::unique_ptr<FILE, file_close> file(plat_fopen(path.c_str(), "r"));
    if (file == nullptr)
        return false;
    char part[4096];
    for (std::size_t n; (n = std::fread(part, 1, sizeof part, file.get())) > 0;)
        text.append(part, n);
    return std::ferror(file.get()) == 0;
}

int file_result(lua_State* L, int result, const char* path)
{
    return luaL_fileresult(L, result == 0 ? 1 : 0, path);
}

int os_execute(lua_State* L)
{
    const char* const line = luaL_optstring(L, 1, nullptr);
    if (line != nullptr)
        return luaL_execresult(L, plat_system(line));
    lua_pushboolean(L, 1);
    return 1;
}

int os_remove(lua_State* L)
{
    const char* const path = luaL_checkstring(L, 1);
    return file_result(L, plat_unlink(phone_path(path).c_str()), path);
}

int os_rename(lua_State* L)
{
    const char* const from = luaL_checkstring(L, 1);
    const char* const to = luaL_checkstring(L, 2);
    return file_result(L, plat_rename(phone_path(from).c_str(), phone_path(to).c_str()), nullptr);
}

// Makes a file that wasn't there: its descriptor, -1 on failure, and in `name` its path.
int make_temporary(std::string& name)
{
    constexpr int MOST_TRIES = 1000; // names that a former run has left
    for (int i = 0; i < MOST_TRIES; i++) {
        name = TEMPORARY + std::to_string(temporary_count++);
        const int fd = plat_open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
    return -1;
}

int os_tmpname(lua_State* L)
{
    std::string name;
    const int fd = make_temporary(name);
    if (fd < 0)
        return luaL_error(L, "unable to generate a unique filename");
    plat_close(fd);
    lua_pushstring(L, name.c_str());
    return 1;
}

int os_exit(lua_State* L)
{
    return luaL_error(L, "os.exit ends the menu");
}

int close_file(lua_State* L)
{
    auto* const p = static_cast<luaL_Stream*>(luaL_checkudata(L, 1, LUA_FILEHANDLE));
    return luaL_fileresult(L, std::fclose(p->f) == 0 ? 1 : 0, nullptr);
}

int close_pipe(lua_State* L)
{
    auto* const p = static_cast<luaL_Stream*>(luaL_checkudata(L, 1, LUA_FILEHANDLE));
    return luaL_execresult(L, plat_pclose(p->f));
}

// A file handle of the io library, closed until `f` is set.
luaL_Stream* new_stream(lua_State* L, lua_CFunction close)
{
    auto* const p = static_cast<luaL_Stream*>(lua_newuserdata(L, sizeof(luaL_Stream)));
    p->closef = nullptr;
    p->f = nullptr;
    luaL_setmetatable(L, LUA_FILEHANDLE);
    p->closef = close;
    return p;
}

int give_stream(lua_State* L, luaL_Stream* p, FILE* f, const char* path)
{
    p->f = f;
    if (f != nullptr)
        return 1;
    p->closef = nullptr;
    return luaL_fileresult(L, 0, path);
}

bool is_mode(const char* mode)
{
    if (std::strchr("rwa", mode[0]) == nullptr || mode[0] == '\0')
        return false;
    const char* rest = mode + 1;
    rest += *rest == '+' ? 1 : 0;
    return std::strcmp(rest, "") == 0 || std::strcmp(rest, "b") == 0;
}

int io_open(lua_State* L)
{
    const char* const path = luaL_checkstring(L, 1);
    const char* const mode = luaL_optstring(L, 2, "r");
    luaL_argcheck(L, is_mode(mode), 2, "invalid mode");
    luaL_Stream* const p = new_stream(L, close_file);
    return give_stream(L, p, plat_fopen(phone_path(path).c_str(), mode), path);
}

// A file without a name: it is gone when it is closed.
int io_tmpfile(lua_State* L)
{
    luaL_Stream* const p = new_stream(L, close_file);
    std::string name;
    const int fd = make_temporary(name);
    FILE* const f = fd >= 0 ? plat_fopen(name.c_str(), "w+") : nullptr;
    if (fd >= 0) {
        plat_close(fd);
        plat_unlink(name.c_str());
    }
    return give_stream(L, p, f, nullptr);
}

int io_popen(lua_State* L)
{
    const char* const line = luaL_checkstring(L, 1);
    const char* const mode = luaL_optstring(L, 2, "r");
    luaL_Stream* const p = new_stream(L, close_pipe);
    return give_stream(L, p, plat_popen(line, mode), line);
}

// io.input, io.output and io.lines with a name open it through io.open: upvalue 1 is the library's own.
int io_by_name(lua_State* L)
{
    const int count = lua_gettop(L);
    if (lua_type(L, 1) == LUA_TSTRING) {
        lua_pushcfunction(L, io_open);
        lua_pushvalue(L, 1);
        lua_pushvalue(L, lua_upvalueindex(2));
        lua_call(L, 2, 2);
        if (lua_isnil(L, -2))
            return luaL_error(L, "%s", lua_tostring(L, -1));
        lua_pop(L, 1);
        lua_replace(L, 1);
    }
    lua_pushvalue(L, lua_upvalueindex(1));
    lua_insert(L, 1);
    lua_call(L, count, LUA_MULTRET);
    return lua_gettop(L);
}

// io.lines of a name: the lines of a handle, which its collector closes.
int io_lines(lua_State* L)
{
    if (lua_type(L, 1) != LUA_TSTRING) {
        lua_pushvalue(L, lua_upvalueindex(1));
        lua_insert(L, 1);
        lua_call(L, lua_gettop(L) - 1, LUA_MULTRET);
        return lua_gettop(L);
    }
    const int count = lua_gettop(L);
    lua_pushcfunction(L, io_open);
    lua_pushvalue(L, 1);
    lua_call(L, 1, 2);
    if (lua_isnil(L, -2))
        return luaL_error(L, "%s", lua_tostring(L, -1));
    lua_pop(L, 1);
    lua_replace(L, 1);
    lua_getfield(L, 1, "lines");
    lua_insert(L, 1);
    lua_call(L, count, 1);
    return 1;
}

int base_loadfile(lua_State* L)
{
    const char* const path = luaL_checkstring(L, 1);
    if (luigi_os_load(L, path, luaL_optstring(L, 2, nullptr)) != LUA_OK) {
        lua_pushnil(L);
        lua_insert(L, -2);
        return 2;
    }
    if (lua_gettop(L) > 3) { // an environment was given
        lua_pushvalue(L, 3);
        lua_setupvalue(L, -2, 1);
    }
    return 1;
}

int base_dofile(lua_State* L)
{
    if (luigi_os_load(L, luaL_checkstring(L, 1), nullptr) != LUA_OK)
        return lua_error(L);
    const int below = lua_gettop(L) - 1;
    lua_call(L, 0, LUA_MULTRET);
    return lua_gettop(L) - below;
}

// clang-format off
constexpr luaL_Reg os_functions[] = {
    { "execute", os_execute },
    { "exit",    os_exit },
    { "remove",  os_remove },
    { "rename",  os_rename },
    { "tmpname", os_tmpname },
    {},
};

constexpr luaL_Reg io_functions[] = {
    { "open",    io_open },
    { "popen",   io_popen },
    { "tmpfile", io_tmpfile },
    {},
};

constexpr luaL_Reg base_functions[] = {
    { "dofile",   base_dofile },
    { "loadfile", base_loadfile },
    {},
};
// clang-format on

// Wraps function `name` of the table on top of the stack; `mode` is how it opens a file.
void wrap(lua_State* L, const char* name, lua_CFunction fn, const char* mode)
{
    lua_getfield(L, -1, name);
    lua_pushstring(L, mode);
    lua_pushcclosure(L, fn, 2);
    lua_setfield(L, -2, name);
}

} // namespace

void luigi_os_register(lua_State* L)
{
    lua_getglobal(L, "os");
    luaL_setfuncs(L, os_functions, 0);
    lua_getglobal(L, "io");
    luaL_setfuncs(L, io_functions, 0);
    wrap(L, "input", io_by_name, "r");
    wrap(L, "output", io_by_name, "w");
    wrap(L, "lines", io_lines, "r");
    lua_pushglobaltable(L);
    luaL_setfuncs(L, base_functions, 0);
    lua_pop(L, 3);
}

int luigi_os_load(lua_State* L, const char* path, const char* mode)
{
    const std::string own = phone_path(path);
    std::string text;
    if (!read_whole(own, text)) {
        lua_pushfstring(L, "cannot open %s: %s", own.c_str(), std::strerror(errno));
        return LUA_ERRFILE;
    }
    // An editor's mark of UTF-8 is skipped; of a line that names an interpreter the line end stays, to count.
    std::size_t start = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    if (text.substr(start, 1) == "#")
        start = std::min(text.find('\n'), text.size());
    return luaL_loadbufferx(L, text.data() + start, text.size() - start, ("@" + own).c_str(), mode);
}

std::string luigi_os_scripts_path(const char* path)
{
    std::string host = plat_host_path(path);
    if (!host.ends_with('/'))
        host += '/';
    return host;
}

std::string luigi_os_phone_paths(std::string text)
{
    const std::string root = host_root();
    if (root.empty())
        return text;
    for (std::size_t at; (at = text.find(root + "/")) != text.npos;)
        text.erase(at, root.size());
    return text;
}
