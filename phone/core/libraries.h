// The closed libraries: real shared objects that are built with the phone and lie beside the program. A bare
// name is looked up there and nowhere else, so that the host's libraries can't be reached; a path is one of
// the phone's file tree.
#pragma once

#include "core/library_host.h"

namespace phone {

// What every library that asks for it gets when it is loaded.
void libraries_host(const phone_library_host* p_host);

void* libraries_open(const char* name, int flags);

} // namespace phone
