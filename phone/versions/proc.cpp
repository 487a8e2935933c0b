#include "versions/proc.h"

#include "core/home.h"

namespace phone {

void proc_seed()
{
    home_seed("/proc/version",
              "Linux version 3.4.0-perf-g5d2c81e (build@korvat) (gcc version 4.7 (GCC) ) #1 SMP "
              "PREEMPT Mon Jul 29 19:12:44 2013\n");
}

} // namespace phone
