// The queue between the threads of the download's link layer: messages of one size, first in, first out. Its
// owner keeps it until nobody sends or receives any more.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>

namespace pn65_dnld {

// A call that somebody wants to be made on the writer's thread.
struct deferred_call {
    void (*fn)(void* arg);
    void* arg;
};

constexpr std::uint32_t MSG_DEFERRED = 785;
constexpr std::uint32_t MSG_QUIT = 786; // the writer's thread ends

struct message {
    std::uint32_t type;
    deferred_call* p_call;
    std::uint32_t size;
};

struct message_queue {
    std::mutex mutex; // guards all below
    std::condition_variable filled;
    std::deque<message> messages;
};

// Copies the message to the end; -1 when `size` isn't that of a message, else 0.
int phDal4Nfc_msgsnd(message_queue& q, const void* p_msg, std::size_t size);

// Waits for a message and takes the first; results as above.
int phDal4Nfc_msgrcv(message_queue& q, void* p_msg, std::size_t size);

} // namespace pn65_dnld
