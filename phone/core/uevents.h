// The kernel's uevent socket. Each listener is a datagram socket; an event carries its sender and
// credentials.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <sys/socket.h>
#include <sys/types.h>
#include <vector>

namespace phone {

int uevents_open();
ssize_t uevents_receive(int fd, void* buf, std::size_t size, std::uint32_t* p_sender, ucred* p_cred);

// Sends one event, its strings each ended by a NUL, to every listener: from the kernel, or as each of the
// forgers whom a listener has to see through.
void uevents_send(bool from_kernel, const std::vector<std::string_view>& lines);

// The word `uevent`.
void uevents_attach();

} // namespace phone
