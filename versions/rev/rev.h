// Named revision strings, and the command `rev` that lists them. Records are added during start-up and stay;
// there is no lock.
#pragma once

#include "slnk/slnk.h"

struct rev_rec {
    slnk lnk;
    const char* id;
    const char* txt;
};

// Empties the list and adds the table of `rev`.
void rev_init();

// Enters a record, which the caller supplies; both texts are kept as pointers. A listing shows the latest
// first.
void rev_add(rev_rec* p_rec, const char* id, const char* txt);

// The text of a record, or NULL.
const char* rev_get(const char* id);
