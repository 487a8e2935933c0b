// For tests of a build that this machine's own processor can't run: what such a program starts is started
// through the emulator that it runs in itself. The two ways in which the tests and the virtual phone start
// programs stand here in front of the C library's.
#include <climits>
#include <cstdlib>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

// The command line of the emulator for `path` with the arguments `argv`. It finds the libraries by its
// environment.
std::vector<char*> through_emulator(std::string& path, char* const* argv)
{
    char own[PATH_MAX];
    if (path == "/proc/self/exe")
        if (const ssize_t n = readlink(path.c_str(), own, sizeof own); n > 0)
            path.assign(own, static_cast<std::size_t>(n));
    static char emulator[] = HVT_EMULATOR;
    std::vector<char*> line = {emulator, path.data()};
    for (argv++; *argv != nullptr; argv++)
        line.push_back(*argv);
    line.push_back(nullptr);
    return line;
}

} // namespace

extern "C" int execv(const char* path, char* const* argv)
{
    std::string program = path;
    return execve(HVT_EMULATOR, through_emulator(program, argv).data(), environ);
}

extern "C" int posix_spawn(pid_t* p_pid, const char* path, const posix_spawn_file_actions_t* p_actions,
                           const posix_spawnattr_t* p_attributes, char* const* argv, char* const* envp)
{
    std::string program = path;
    return posix_spawnp(p_pid, HVT_EMULATOR, p_actions, p_attributes, through_emulator(program, argv).data(),
                        envp);
}
