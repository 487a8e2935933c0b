// Tells whoever looks on what has changed, so that nobody has to ask again and again: the word `watch`. A
// change is one line, its kind first: "screen 0", "log port", "word battery 3812 -200". What changed, not
// what it is now; who wants that asks for it.
#pragma once

#include <memory>
#include <string_view>

namespace phone {

// What one connection has not been told yet.
struct watcher;

// A change, from any thread. While nobody watches it costs a look at a flag.
void notice(std::string_view change);

// The word `watch`.
void notice_attach();

} // namespace phone
