// hvt-boot: the program that ships, on a Linux kernel that isn't the phone's own (./hvt boot). It is
// hvt-device but for what that machine calls otherwise, and for the closed libraries, which are those of the
// virtual phone and want to be introduced to it.
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <string_view>
#include <sys/resource.h>
#include <unistd.h>

#include "core/library_host.h"
#include "plat/plat.h"
#include "plat_linux/plat_linux.h"
#include "s_qat_korvat/s_qat_korvat.h"
#include "store/units_host.h"

namespace {

// The framebuffer's driver, and where the machine's messages of the cable come from (see boot/README.md).
constexpr s_setting settings[] = {
    {"screenconf", "main_fb_id", "virtio_gpudrmfb", 0},
    {"usb_linux", "uevent_path", "/devices/virtual/net/", 0},
};

std::atomic<std::uint32_t> unit_changes; // nobody else writes the units here

constexpr phone_units_host units = {"/data/units", &unit_changes};

const void* offered(const char* name)
{
    return std::strcmp(name, "units") == 0 ? &units : nullptr;
}

bool place(const char* path, char* buf, std::size_t size)
{
    return std::snprintf(buf, size, "%s", path) < static_cast<int>(size);
}

// The store's libraries and the one of the contactless firmware ask for no more.
const phone_library_host* library_host()
{
    static phone_library_host host{};
    host.call = [](const char*, std::uint32_t) { return false; };
    host.place = place;
    host.offered = offered;
    return &host;
}

void* open_library(const char* name, int flags)
{
    void* const library = plat_linux_co.dlopen(name, flags);
    void* const attach = library != nullptr ? plat_linux_co.dlsym(library, "phone_library_attach") : nullptr;
    if (attach != nullptr)
        reinterpret_cast<phone_library_attach_fn>(attach)(library_host());
    return library;
}

const char* count_path; // where the cost of the start is told; null: nowhere

// "PROGRAM SHELL-LINES", the nanoseconds of processor time that this process has used, and the processes that
// it has waited for.
void tell_count()
{
    timespec own{};
    rusage others{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &own);
    getrusage(RUSAGE_CHILDREN, &others);
    if (std::FILE* const file = std::fopen(count_path, "w")) {
        std::fprintf(file, "%lld %lld\n", own.tv_sec * 1'000'000'000LL + own.tv_nsec,
                     (others.ru_utime.tv_sec + others.ru_stime.tv_sec) * 1'000'000'000LL +
                         (others.ru_utime.tv_usec + others.ru_stime.tv_usec) * 1000LL);
        std::fclose(file);
    }
    count_path = nullptr;
}

ssize_t write_counted(int fd, const void* buf, std::size_t size)
{
    const ssize_t result = write(fd, buf, size);
    if (count_path != nullptr && std::string_view(static_cast<const char*>(buf), size).starts_with("TP,OK"))
        tell_count();
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    static plat_callouts co = plat_linux_co;
    co.dlopen = open_library;
    count_path = std::getenv("HVT_COUNT");
    if (count_path != nullptr)
        co.write = write_counted;
    plat_attach(&co);
    s_set_open(settings);
    return s_main(argc, argv);
}
