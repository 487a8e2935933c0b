#include "queue/queue.h"

#include <cstring>

#include "plat/plat.h"

namespace {

bool usable(const queue* p_q, const void* p_rec, int size)
{
    return p_q != nullptr && p_rec != nullptr && p_q->buf != nullptr && size >= 0 &&
           static_cast<std::size_t>(size) <= p_q->size;
}

unsigned char* slot(queue* p_q, std::size_t at)
{
    return p_q->buf.get() + at * p_q->size;
}

} // namespace

void queue_init() {}

int queue_start(queue* p_q, int n, int size)
{
    if (p_q == nullptr || n <= 0 || size <= 0)
        return -1;
    const std::size_t cap = static_cast<std::size_t>(n) + 1;
    const std::size_t bytes = static_cast<std::size_t>(size);
    if (cap > SIZE_MAX / bytes)
        return -1;
    p_q->buf = heap_alloc<unsigned char>(cap * bytes);
    if (p_q->buf == nullptr)
        return -1;
    p_q->cap = cap;
    p_q->size = bytes;
    p_q->wr = 0;
    p_q->rd = 0;
    return 1;
}

int queue_put(queue* p_q, const void* p_rec, int size)
{
    if (!usable(p_q, p_rec, size))
        return -1;
    std::unique_lock lock(p_q->mutex);
    plat_wait(p_q->not_full, lock, [&] { return (p_q->wr + 1) % p_q->cap != p_q->rd; });
    std::memcpy(slot(p_q, p_q->wr), p_rec, p_q->size);
    p_q->wr = (p_q->wr + 1) % p_q->cap;
    plat_cond_wake(p_q->not_empty);
    return 1;
}

int queue_get(queue* p_q, void* p_rec, int size)
{
    if (!usable(p_q, p_rec, size))
        return -1;
    std::unique_lock lock(p_q->mutex);
    plat_wait(p_q->not_empty, lock, [&] { return p_q->wr != p_q->rd; });
    std::memcpy(p_rec, slot(p_q, p_q->rd), p_q->size);
    p_q->rd = (p_q->rd + 1) % p_q->cap;
    plat_cond_wake(p_q->not_full);
    return 1;
}
