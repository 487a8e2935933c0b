// The closed libraries: real shared objects that are built with the phone and lie beside the program. A bare
// name is looked up there and nowhere else, so that the host's libraries can't be reached; a path is one of
// the phone's file tree. Each is introduced to the phone (core/library_host.h) when it is opened.
#pragma once

#include <string>
#include <string_view>

namespace phone {

// A record of a device's for the libraries that stand before it. It must live as long as the process.
void libraries_offer(std::string_view name, const void* p_record);

void* libraries_open(const char* name, int flags);

// Loads a closed library that another library will open by itself, so that it is introduced by then. False if
// it isn't there or can't be loaded.
bool libraries_introduce(const char* name);

// Where a file of this name beside the libraries lies on the host.
std::string libraries_place(std::string_view name);

// Whether a library of this bare name is built with the phone.
bool libraries_has(std::string_view name);

} // namespace phone
