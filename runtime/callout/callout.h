// Callout tables: how an interface calls what its driver has handed over at start-up. A driver that isn't
// attached is a programming fault and stops the program; an empty slot means that the driver has no such
// operation, and the interface gives the result that it says in its place. Not for slots that must be there
// (`screen` checks its own), and not for attaching, which each interface does in its own way.
#pragma once

#include <type_traits>

#include "check/check.h"

// Calls `fn` with `args`; gives `otherwise` where it is null.
template <class R, class... P, class... A>
R callout(R (*fn)(P...), std::type_identity_t<R> otherwise, A... args)
{
    return fn != nullptr ? fn(args...) : otherwise;
}

// The same for a slot of the driver's table. Whoever looks at a stopped program finds the table's type.
template <class Co, class R, class... P, class... A>
R callout(const Co* p_co, R (*Co::*slot)(P...), std::type_identity_t<R> otherwise, A... args)
{
    if (p_co == nullptr)
        check_failed(__PRETTY_FUNCTION__, __FILE__, __LINE__);
    return callout(p_co->*slot, otherwise, args...);
}
