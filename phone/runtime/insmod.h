// Kernel modules: the tool insmod. A device whose driver is a module says what happens when it is loaded.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace phone {

// Told of the module's parameters as the line has them, "con_mode=5".
using module_load_fn = void (*)(const std::vector<std::string>& params);

// `file` is the module's file name, without folder; the file itself must be in the file tree to be loaded.
// Only while devices attach.
void module_add(std::string_view file, module_load_fn load);

// Whether it is loaded, and, with a `param`, with that one among its parameters. Not from within a `load`.
bool module_loaded(std::string_view file, std::string_view param = "");

void insmod_attach();

} // namespace phone
