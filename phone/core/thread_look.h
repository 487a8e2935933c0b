// What the host tells of a thread of this process: whether it sleeps, and how long it has run until now.
#pragma once

#include <set>
#include <sys/types.h>

namespace phone {

struct thread_look {
    bool sleeps;
    long long run_ns;
    bool operator==(const thread_look&) const = default;
};

// The threads of this process.
std::set<pid_t> thread_ids();

// A thread that is gone reads as one that doesn't sleep.
thread_look look_at(pid_t tid);

} // namespace phone
