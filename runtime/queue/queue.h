// A blocking queue of fixed capacity that carries records of one size between threads, by copy. Any number of
// producers and consumers. Not for large data: a record is copied in and out under the lock.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <mutex>

#include "heap/heap.h"

struct queue {
    std::mutex mutex;
    std::condition_variable not_full;
    std::condition_variable not_empty;
    std::size_t cap;  // slots, one more than the records that fit: wr equals rd only when empty
    std::size_t size; // bytes of a record
    std::size_t wr;
    std::size_t rd;
    heap_ptr<unsigned char> buf;
};

// Entry of the driver tier; nothing to do.
void queue_init();

// Makes room for `n` records of `size` bytes, both positive. 1, or -1 on a bad argument or without memory.
// Comes before any other thread knows the queue.
int queue_start(queue* p_q, int n, int size);

// Copies a record in; blocks while the queue is full. `size` is what the caller takes a record to be and must
// be neither negative nor more than the queue's; whatever it says, the queue's whole record size is read. 1,
// or -1 on a bad argument.
int queue_put(queue* p_q, const void* p_rec, int size);

// Copies the oldest record out; blocks while the queue is empty. `size` as for queue_put: the whole record
// size is written. 1, or -1 on a bad argument.
int queue_get(queue* p_q, void* p_rec, int size);
