// The phone's shell: runs command lines with quotes, redirections, ;, && and ||, and pipes, by a table of
// tool stand-ins. Nothing ever reaches the host's shell or its programs. A tool goes by its name, or by its
// path in /system/bin; an unknown one exits with 127, as one does that the phone lacks ("without
// /system/bin/iw").
#pragma once

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace phone {

struct tool_call {
    std::vector<std::string> args; // args[0] is the tool's name
    std::string in;
    std::string out;
    std::string err;
};

// A tool: the result is its exit status. Any thread.
using tool_fn = int (*)(tool_call& call);

// Only before the program runs. `name` is the bare one. What the bench has a tool give (the word `tool`) is
// what it prints, or, with a `result_file`, the whole content of that.
void tool_add(std::string_view name, tool_fn fn, std::string_view result_file = "");

// Whether there is a tool of that bare name.
bool toolbox_has(std::string_view name);

// Adds the word `tool`.
void toolbox_attach();

// Runs a line; the result is a wait status, as of system. What the line prints goes nowhere.
int toolbox_run(std::string_view line);

// The same with a stream from (mode "r") or to (mode "w") the line.
FILE* toolbox_popen(const char* line, const char* mode);
int toolbox_pclose(FILE* stream);

} // namespace phone
