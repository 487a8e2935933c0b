#include "msg.h"

#include <cstring>

#include "plat/plat.h"

namespace pn65_dnld {

int phDal4Nfc_msgsnd(message_queue& q, const void* p_msg, std::size_t size)
{
    if (size != sizeof(message))
        return -1;
    message m;
    std::memcpy(&m, p_msg, sizeof m);
    const std::lock_guard lock(q.mutex);
    q.messages.push_back(m);
    plat_cond_wake(q.filled);
    return 0;
}

int phDal4Nfc_msgrcv(message_queue& q, void* p_msg, std::size_t size)
{
    if (size != sizeof(message))
        return -1;
    std::unique_lock lock(q.mutex);
    plat_wait(q.filled, lock, [&q] { return !q.messages.empty(); });
    std::memcpy(p_msg, &q.messages.front(), sizeof(message));
    q.messages.pop_front();
    return 0;
}

} // namespace pn65_dnld
