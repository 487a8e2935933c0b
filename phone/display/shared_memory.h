// Memory that devices share: a memfd, whose descriptor is its id. Who gets an id finds the memory by it for
// as long as somebody holds it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace phone {

struct shared_memory {
    int id = -1;
    std::uint8_t* p = nullptr;
    std::size_t size = 0;

    shared_memory() = default;
    ~shared_memory();
    shared_memory(const shared_memory&) = delete;
    shared_memory& operator=(const shared_memory&) = delete;
};

using shared_memory_ref = std::shared_ptr<shared_memory>;

// Zeroed memory; null when there is none to be had.
shared_memory_ref shared_memory_make(std::size_t size);

// What is known under an id, or the memory that an address lies in; null for nothing.
shared_memory_ref shared_memory_of(int id);
shared_memory_ref shared_memory_at(std::uintptr_t address);

// From now on nobody finds it; it goes when the last who holds it lets go.
void shared_memory_drop(int id);

} // namespace phone
