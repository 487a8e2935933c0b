// The phone's file tree and its descriptors. A path that a device claims is served by the device; every other
// path is a plain file below DIR/root, and nothing outside it can be reached. Attributes (/sys, /proc, /dev)
// behave as the kernel's do: a write replaces the content, and nothing new can be made there.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>

namespace phone {

struct node;
struct socket_family;

// An open descriptor of the program.
struct open_file {
    int fd;
    std::string path;           // as it was opened; the name of what was opened in another way: "pipe"
    const node* p_node;         // NULL for a plain file, or what is the host's
    bool attribute;             // under /sys, /proc or /dev: a write replaces the content
    std::shared_ptr<void> data; // the device's own, for this descriptor
    const socket_family* p_family = nullptr; // of a socket that a device has (core/sockets.h)
};

// What stands behind a path. Calls may come from any thread, several at a time. An empty slot: read and write
// go to the descriptor itself, ioctl is strange and fails with ENOTTY, close has nothing to do.
struct node {
    // Whether the node is there at all; without this slot it always is. Asked before each open.
    bool (*present)(std::string_view path) = nullptr;
    // Gives a real descriptor, or -1 and errno. Without this slot it is an eventfd.
    int (*open)(open_file& file, int flags) = nullptr;
    ssize_t (*read)(open_file& file, void* buf, std::size_t size) = nullptr;
    ssize_t (*write)(open_file& file, const void* buf, std::size_t size) = nullptr;
    int (*ioctl)(open_file& file, unsigned long request, void* arg) = nullptr;
    // What a request is about, for the text of the call ("ioctl /dev/i2c-5 18 02"); without this slot,
    // nothing.
    std::string (*about)(unsigned long request, const void* arg) = nullptr;
    off_t (*lseek)(open_file& file, off_t offset, int whence) = nullptr;
    void (*close)(open_file& file) = nullptr;
    // Whether there is something to read: for devices that know it without asking the host.
    bool (*readable)(open_file& file) = nullptr;
};

// A plain attribute file with a life of its own: `before_read` may bring the file's content up to date when
// the program opens it for reading, `after_write` acts on what the program has written (line end included).
struct attribute {
    void (*before_read)(std::string_view path) = nullptr;
    void (*after_write)(std::string_view path, std::string_view text) = nullptr;
};

// Claims a path. The record must live as long as the process.
void node_add(std::string_view path, const node* p_node);
void attribute_add(std::string_view path, const attribute* p_attribute);

// The phone lacks, or has, what stands at `path`, whatever its file tree says.
void path_without(std::string_view path);

// A path that not every phone has: that it isn't there is nothing strange.
void path_optional(std::string_view path);

// Whether the phone has `path`: a node, a file or a folder of its tree, a tool, or what isn't always there.
// With `beginning` a path that begins so is enough.
bool path_is_known(std::string_view path, bool beginning = false);

// From now on what is below `dir` of the phone lies in the folder `host` of the host; an empty one ends that.
void path_mount(std::string_view dir, const std::string& host);

// Where a path of the phone lies on the host: links are followed inside DIR/root only, ".." stops at its top.
// With `follow_last` false a link at the end is left as it is. Empty, and errno, when there is no such place.
std::string host_path(std::string_view path, bool follow_last = true);

// Whole files of the phone, for devices and tools: no fault is drawn, attributes keep their rules. Failures
// give false and errno.
bool file_read(std::string_view path, std::string& text);
bool file_write(std::string_view path, std::string_view text, bool append = false);

// Adds the word `files`.
void files_attach();

// What the phone keeps of a descriptor; NULL for one that isn't its own.
std::shared_ptr<open_file> file_of(int fd);

// A path that phone.conf takes away from this phone ("without").
bool path_is_lacking(std::string_view path);

} // namespace phone
