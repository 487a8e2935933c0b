// What a call of the phone's table failed with; 0 when it didn't give -1.
#pragma once

#include <cerrno>

inline int error_of(long result)
{
    return result == -1 ? errno : 0;
}
