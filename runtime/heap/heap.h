// Memory of the C heap that frees itself: a block from malloc or calloc, or one that a library hands out to
// be freed. The program has no new and no delete. Says nothing of how large the block is: its owner knows.
#pragma once

#include <cstdlib>
#include <memory>

struct heap_free {
    void operator()(void* p) const { std::free(p); }
};

template <class T>
using heap_ptr = std::unique_ptr<T, heap_free>;

// `bytes` bytes that hold nothing yet; null when there are none to be had.
template <class T>
heap_ptr<T> heap_alloc(std::size_t bytes)
{
    return heap_ptr<T>(static_cast<T*>(std::malloc(bytes)));
}
