// Sockets of the program. Those of the internet are the host's, since the phone's network is; any other
// family has to be a device's of the phone, and never reaches the host. A family that nobody has is refused
// with the errno of a kernel without it, and is strange.
#pragma once

#include <cstdint>
#include <sys/socket.h>

#include "core/files.h"

namespace phone {

// What stands behind an address family. Calls may come from any thread.
struct socket_family {
    const char* name; // what its descriptors are called in `files`, `calls`, `fail`: "hci0"
    const node*
        p_node; // read, write, ioctl, close, readable, as behind a path; `open` and `present` aren't asked
    // Gives a real descriptor, one end of a socket pair, or -1 and errno.
    int (*open)(open_file& file, int type, int protocol);
    // May be null: ENOPROTOOPT then, and strange.
    int (*setsockopt)(open_file& file, int level, int option, const void* p_value, socklen_t size);
    // Of AF_BLUETOOTH: ties a new socket to a device; 0, or -1 and errno. May be null: there is none, ENODEV.
    int (*bind_device)(open_file& file, int device);
    // Of AF_BLUETOOTH: the program has put a packet into the descriptor; 0, or -1 and errno when it can't go
    // out. May be null.
    int (*sent)(open_file& file) = nullptr;
};

// Claims a family. The record must live as long as the process. Only while devices attach.
void socket_family_add(int family, const socket_family* p_family);

// For the platform table.
int sockets_open(int family, int type, int protocol);
int sockets_setsockopt(int fd, int level, int option, const void* p_value, socklen_t size);
int sockets_hci_open_dev(int device);
int sockets_hci_sent(int fd);

// What a socket of the family is called, for a call that makes one.
const char* sockets_name(int family);

} // namespace phone
