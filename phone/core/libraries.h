// The closed libraries: real shared objects that are built with the phone and lie beside the program. A bare
// name is looked up there and nowhere else, so that the host's libraries can't be reached; a path is one of
// the phone's file tree.
#pragma once

namespace phone {

void* libraries_open(const char* name, int flags);

} // namespace phone
