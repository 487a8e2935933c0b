// The phone's folder DIR: where everything of one virtual phone lies, who holds it, and what a first start
// puts into it. One process at a time holds a DIR; the lock goes over a restart with the process.
#pragma once

#include <string>
#include <string_view>

namespace phone {

// Takes DIR: makes what is missing of it and locks it. Returns an empty text, or what is wrong in a sentence
// that names the thing (not writable, damaged, already running, disk full, somebody else's folder).
std::string home_take(const std::string& dir);

// True until the seeds are laid: this DIR never held a phone that started up whole.
bool home_is_first_start();

// Gives the phone's file `path` ("/sys/...") the content `text`, unless it is there already: once in the life
// of a DIR, at its first start or, when the device is new since, at a later one. A path that ends in a slash
// is an empty folder. The file is laid by home_lay_seeds, or before that when somebody asks for it.
void home_seed(std::string_view path, std::string_view text);

// Lays the seeds of `path` and of all below it, if they aren't yet: to be called before a path is used.
void home_lay(std::string_view path);

// Whether a seed of `path`, or of something below it, isn't laid yet. With `beginning` a path that begins so
// is enough.
bool home_seed_waits(std::string_view path, bool beginning);

// Lays all seeds and so ends the first start; DIR/seeds tells later ones what has been laid. The result is
// empty, or what is wrong. Takes its time: it runs beside the start of the program.
std::string home_lay_seeds();

// A path below DIR ("root/sys/..." or "log/kmsg"), for the host's own calls.
std::string home_path(std::string_view below);

// Somebody has deleted DIR, or the lock file in it.
bool home_is_gone();

// Keeps the lock of DIR over an exec: its descriptor, to be handed on; and the call that takes it up again.
int home_lock_fd();
void home_inherit_lock(int fd);

} // namespace phone
