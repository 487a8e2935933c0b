// Kernel modules: the tool insmod. A device whose driver is a module says what happens when it is loaded.
#pragma once

#include <string_view>

namespace phone {

// `file` is the module's file name, without folder; the file itself must be in the file tree to be loaded.
// Only while devices attach.
void module_add(std::string_view file, void (*load)());

void insmod_attach();

} // namespace phone
