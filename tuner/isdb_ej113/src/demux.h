// The demultiplexer of the kernel, which the stream comes through, with this platform's own requests. The
// kernel's header describes records of other sizes.
#pragma once

#include <cstddef>
#include <cstdint>

// Opened and set going; stopped and closed on every way out.
class demux_guard {
public:
    demux_guard();
    ~demux_guard();
    demux_guard(const demux_guard&) = delete;
    demux_guard& operator=(const demux_guard&) = delete;

    // It opened and took all requests.
    bool ready() const { return initialised; }

    // Waits until it has something, and fetches what that is. False when the event isn't data.
    bool wait_for_data(int timeout_ms) const;

    enum class got { packet, overflow, failed };

    // The next 188 bytes, which must come whole.
    got read_packet(std::uint8_t* p_packet) const;

private:
    int fd;
    bool initialised;
};
