#include "core/libraries.h"

#include <cerrno>
#include <cstring>
#include <dlfcn.h>
#include <string>
#include <unistd.h>

#include "core/files.h"
#include "core/watch.h"

namespace phone {

namespace {

const phone_library_host* p_library_host;

std::string beside_program(const char* name)
{
    char path[4096];
    const ssize_t n = readlink("/proc/self/exe", path, sizeof path);
    if (n <= 0)
        return {};
    const std::string program(path, static_cast<std::size_t>(n));
    return program.substr(0, program.rfind('/')) + "/closed/" + name;
}

// Introduces a library to the phone, if it wants that.
void introduce(void* library)
{
    void* const symbol = dlsym(library, "phone_library_attach");
    if (symbol != nullptr && p_library_host != nullptr)
        reinterpret_cast<phone_library_attach_fn>(symbol)(p_library_host);
}

} // namespace

void libraries_host(const phone_library_host* p_host)
{
    p_library_host = p_host;
}

void* libraries_open(const char* name, int flags)
{
    if (path_is_lacking(name))
        return nullptr;
    const std::string path = std::strchr(name, '/') != nullptr ? host_path(name) : beside_program(name);
    if (path.empty() || access(path.c_str(), R_OK) != 0) {
        strange("dlopen " + std::string(name));
        return nullptr;
    }
    void* const library = ::dlopen(path.c_str(), flags);
    if (library != nullptr)
        introduce(library);
    return library;
}

} // namespace phone
