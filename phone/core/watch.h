// Watches every platform call: counts it, shows it (`log on`), records it (`calls`), and makes it fail when a
// fault is armed (`fail`). Also keeps what the program asked of the phone that no model knows (`strange`).
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace phone {

enum class fault { none, eio, shortened, eof };

// To be called at the head of each platform call with its operation and path (or shell line, or library). An
// armed fault that fits is used up and returned; errno is EIO then. `shortened` and `eof` come for "read" and
// "write" only. A fault of kind slow has waited before this returns none.
fault watch_call(const char* operation, std::string_view path);

// The program has read a command from the station's port, or its loop waits again.
void watch_command(bool begins);

// The same for the register of a chip or another inner target ("i2c 5 18 02"): true when it has to fail.
bool watch_target(std::string_view target);

// How the numbers of an inner target, or of a library's call, stand in its text. They are taken in either
// case, hexadecimal ones with and without 0x.
enum class target_number {
    decimal, // 36
    hex,     // CC0B
    hex2,    // 0F
    hex5,    // 0D840
    hex_0x,  // 0x28
};

// Tells `fail` the grammar of targets "NAME NUMBER ...": their numbers aren't counts, and a target is met as
// a whole, "mixer 3" not by "mixer 36". Fewer numbers are a target for all that begin with them. Only while
// devices attach.
void watch_target_add(std::string_view name, std::initializer_list<target_number> numbers);

// Whether anybody watches at all: for callers to whom forming the text of a call is dear.
bool watch_active();

// The end of a call that watch_call has seen, on the same thread, for `log` and `calls`. Keeps errno.
void watch_result(const char* operation, std::string_view path, long long result);
// The same where nobody says how it has ended.
void watch_no_result(const char* operation, std::string_view path);

// Something that no model of the phone knows: a path, a request, a register, a tool.
void strange(std::string_view what);

// The words `fail`, `log`, `calls`, `strange`.
void watch_attach();

} // namespace phone
