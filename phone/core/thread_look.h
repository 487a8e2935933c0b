// What the host tells of threads of this process: whether they sleep, and how long they have run until now.
#pragma once

#include <map>
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

// A look at threads that work, time after time: whether all of them sleep and haven't run since the look
// before (then they wait for one another, or for something that the clock can't see: a lock, a condition),
// and the processor time that they have had since `first` was cleared. Only that tells a thread that works
// for ever from one that doesn't get to run.
struct threads_look {
    std::map<pid_t, thread_look> last;
    std::map<pid_t, long long> first;
    long long run_ns = 0;

    bool asleep(const std::set<pid_t>& tids);
};

} // namespace phone
