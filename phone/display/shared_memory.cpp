#include "display/shared_memory.h"

#include <map>
#include <mutex>
#include <sys/mman.h>
#include <unistd.h>

namespace phone {

namespace {

std::mutex memories_mutex; // guards the table
std::map<int, shared_memory_ref> memories;

} // namespace

shared_memory::~shared_memory()
{
    if (p != nullptr)
        munmap(p, size);
    if (id >= 0)
        close(id);
}

shared_memory_ref shared_memory_make(std::size_t size)
{
    const auto memory = std::make_shared<shared_memory>();
    memory->id = memfd_create("shared", MFD_CLOEXEC);
    if (memory->id < 0 || ftruncate(memory->id, static_cast<off_t>(size)) != 0)
        return nullptr;
    void* p = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, memory->id, 0);
    if (p == MAP_FAILED)
        return nullptr;
    memory->p = static_cast<std::uint8_t*>(p);
    memory->size = size;
    const std::lock_guard lock(memories_mutex);
    memories[memory->id] = memory;
    return memory;
}

shared_memory_ref shared_memory_of(int id)
{
    const std::lock_guard lock(memories_mutex);
    const auto found = memories.find(id);
    return found != memories.end() ? found->second : nullptr;
}

shared_memory_ref shared_memory_at(std::uintptr_t address)
{
    const std::lock_guard lock(memories_mutex);
    for (const auto& [id, memory] : memories) {
        const auto base = reinterpret_cast<std::uintptr_t>(memory->p);
        if (address >= base && address - base < memory->size)
            return memory;
    }
    return nullptr;
}

void shared_memory_drop(int id)
{
    const std::lock_guard lock(memories_mutex);
    memories.erase(id);
}

} // namespace phone
