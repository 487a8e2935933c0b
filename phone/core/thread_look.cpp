#include "core/thread_look.h"

#include <algorithm>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <string>
#include <unistd.h>

namespace phone {

namespace {

std::string thread_file(pid_t tid, const char* name)
{
    const std::string path = "/proc/self/task/" + std::to_string(tid) + "/" + name;
    char text[512];
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const ssize_t n = fd >= 0 ? ::read(fd, text, sizeof text) : 0;
    if (fd >= 0)
        close(fd);
    return {text, static_cast<std::size_t>(std::max<ssize_t>(n, 0))};
}

// A thread that is gone reads as one that doesn't sleep.
thread_look look_at(pid_t tid)
{
    const std::string stat = thread_file(tid, "stat");
    const std::size_t name_end = stat.rfind(')');
    const bool sleeps = name_end != stat.npos && stat.compare(name_end, 3, ") S") == 0;
    return {sleeps, std::atoll(thread_file(tid, "schedstat").c_str())};
}

} // namespace

std::set<pid_t> thread_ids()
{
    std::set<pid_t> tids;
    DIR* const p_dir = ::opendir("/proc/self/task");
    while (const dirent* const p_entry = p_dir != nullptr ? ::readdir(p_dir) : nullptr)
        if (p_entry->d_name[0] != '.')
            tids.insert(std::atoi(p_entry->d_name));
    if (p_dir != nullptr)
        ::closedir(p_dir);
    return tids;
}

bool threads_look::asleep(const std::set<pid_t>& tids)
{
    std::map<pid_t, thread_look> now;
    run_ns = 0;
    bool sleep = true;
    for (const pid_t tid : tids) {
        const thread_look look = look_at(tid);
        now[tid] = look;
        run_ns += look.run_ns - first.try_emplace(tid, look.run_ns).first->second;
        sleep = sleep && look.sleeps;
    }
    sleep = sleep && now == last;
    last = std::move(now);
    return sleep;
}

} // namespace phone
