// What the vendor's tools have in common: a result file, exit statuses, and the word `tool`, by which a bench
// says what a tool gives.
#pragma once

#include <string>
#include <string_view>

#include "core/toolbox.h"

namespace phone {

// Ends a tool that refuses to work: exit status 1.
int tool_refuses(tool_call& call, std::string_view why);

// Ends a tool well: puts its result, or what the word `tool` has set for its first argument, into the result
// file.
int tool_leaves(const tool_call& call, std::string_view healthy);

// The same for a tool that prints its result.
int tool_prints(tool_call& call, std::string_view healthy);

void vendor_tools_attach();

} // namespace phone
