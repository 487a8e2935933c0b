// The calls of the file tree that the platform table (table.cpp) is made of. Devices use files.h.
#pragma once

#include <memory>
#include <string_view>

#include "core/files.h"

namespace phone {

int files_open(const char* path, int flags, mode_t mode);
int files_close(int fd);
ssize_t files_read(open_file* p_file, int fd, void* buf, std::size_t size);
ssize_t files_write(open_file* p_file, int fd, const void* buf, std::size_t size);

// Gives a descriptor that no path was opened for a name, by which `files`, `calls` and `fail` know it. The
// result is the descriptor.
int files_enter(int fd, std::string_view name);
int files_enter(const std::shared_ptr<open_file>& file);

// A device claims `path`.
bool node_exists(std::string_view path);

} // namespace phone
