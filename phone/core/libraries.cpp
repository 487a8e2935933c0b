#include "core/libraries.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <map>
#include <string>
#include <unistd.h>

#include "core/clock.h"
#include "core/files.h"
#include "core/library_host.h"
#include "core/log.h"
#include "core/watch.h"

namespace phone {

namespace {

std::map<std::string, const void*, std::less<>> offers; // written before the program runs

bool host_call(const char* operation, std::uint32_t number)
{
    if (!watch_active())
        return false;
    char text[16];
    std::snprintf(text, sizeof text, "0x%X", number);
    const bool fails = watch_call(operation, text) == fault::eio;
    watch_no_result(operation, text);
    return fails;
}

phone_call_fate host_call_on(const char* operation, const char* what)
{
    switch (watch_call(operation, what)) {
    case fault::eio:
        return phone_call_fails;
    case fault::shortened:
        return phone_call_short;
    case fault::eof:
        return phone_call_ends;
    case fault::none:
        break;
    }
    return phone_call_good;
}

void host_thread(void (*body)(void*), void* arg)
{
    clock_thread([body, arg] { body(arg); });
}

bool host_place(const char* path, char* buf, std::size_t size)
{
    const std::string place = path_is_lacking(path) ? "" : host_path(path);
    if (place.empty() || place.size() >= size)
        return false;
    std::memcpy(buf, place.c_str(), place.size() + 1);
    return true;
}

const void* host_offered(const char* name)
{
    const auto found = offers.find(std::string_view(name));
    return found != offers.end() ? found->second : nullptr;
}

// clang-format off
constexpr phone_library_host host = {
    .call         = host_call,
    .call_on      = host_call_on,
    .result       = [](const char* operation, const char* what, long long result) { watch_result(operation, what, result); },
    .target       = [](const char* text) { return watch_target(text); },
    .strange      = [](const char* what) { strange(what); },
    .now          = [] { return clock_now(CLOCK_MONOTONIC); },
    .sleep_until  = clock_sleep_until,
    .timer_create = [](void (*fire)(void*), void* arg) { return clock_timer_create([fire, arg] { fire(arg); }); },
    .timer_set    = [](int timer, std::int64_t time) { clock_timer_set(timer, time, 0); },
    .timer_delete = [](int timer) { clock_timer_delete(timer); },
    .thread       = host_thread,
    .cond_wait    = [](std::condition_variable* p_cond, std::unique_lock<std::mutex>* p_lock, std::int64_t moment) { return clock_cond_wait(p_cond, *p_lock, moment); },
    .cond_wake    = [](std::condition_variable* p_cond) { clock_cond_wake(p_cond); },
    .poll_begins  = clock_library_waits,
    .poll_is_over = clock_library_goes_on,
    .log          = [](const char* name, const char* line) { log_line(log_named(name), line); },
    .place        = host_place,
    .offered      = host_offered,
};
// clang-format on

// Introduces a library to the phone, if it wants that.
void introduce(void* library)
{
    void* const symbol = dlsym(library, "phone_library_attach");
    if (symbol != nullptr)
        reinterpret_cast<phone_library_attach_fn>(symbol)(&host);
}

} // namespace

std::string libraries_place(std::string_view name)
{
    char path[4096];
    const ssize_t n = readlink("/proc/self/exe", path, sizeof path);
    if (n <= 0)
        return {};
    const std::string program(path, static_cast<std::size_t>(n));
    return program.substr(0, program.rfind('/')) + "/closed/" + std::string(name);
}

void libraries_offer(std::string_view name, const void* p_record)
{
    offers[std::string(name)] = p_record;
}

void* libraries_open(const char* name, int flags)
{
    if (path_is_lacking(name))
        return nullptr;
    const std::string path = std::strchr(name, '/') != nullptr ? host_path(name) : libraries_place(name);
    if (path.empty() || access(path.c_str(), R_OK) != 0) {
        strange("dlopen " + std::string(name));
        return nullptr;
    }
    void* const library = ::dlopen(path.c_str(), flags);
    if (library != nullptr)
        introduce(library);
    return library;
}

bool libraries_introduce(const char* name)
{
    return libraries_open(name, RTLD_NOW | RTLD_LOCAL) != nullptr;
}

bool libraries_has(std::string_view name)
{
    return access(libraries_place(name).c_str(), R_OK) == 0;
}

} // namespace phone
