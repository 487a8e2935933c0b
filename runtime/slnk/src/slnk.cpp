#include "slnk/slnk.h"

#include <cstdint>

namespace {

constexpr std::intptr_t slnk_word_bytes = 4;

std::intptr_t address(const slnk* p_obj)
{
    return reinterpret_cast<std::intptr_t>(p_obj);
}

slnk* node_at(std::intptr_t addr)
{
    return reinterpret_cast<slnk*>(addr);
}

} // namespace

void slnk_init(slnk* p_head)
{
    p_head->p_next = nullptr;
}

void slnk_insert(slnk* p_prv, slnk* p_obj)
{
    p_obj->p_next = p_prv->p_next;
    p_prv->p_next = p_obj;
}

slnk* slnk_add(slnk* p_head, slnk* p_obj)
{
    slnk* p_tail = p_head;
    while (p_tail->p_next != nullptr)
        p_tail = p_tail->p_next;
    slnk_insert(p_tail, p_obj);
    return p_obj;
}

slnk* slnk_remove(slnk* p_head, slnk* p_obj)
{
    for (slnk* p_prv = p_head; p_prv->p_next != nullptr; p_prv = p_prv->p_next) {
        if (p_prv->p_next == p_obj) {
            p_prv->p_next = p_obj->p_next;
            break;
        }
    }
    return p_obj;
}

slnk* slnk_remove_next(slnk* p_obj)
{
    slnk* p_next = p_obj->p_next;
    if (p_next != nullptr)
        p_obj->p_next = p_next->p_next;
    return p_next;
}

slnk* slnk_next(const slnk* p_prv)
{
    return p_prv->p_next;
}

int slnk_for_each(const slnk* p_prv, int (*fn)(slnk* p_obj, void* arg), void* arg)
{
    for (slnk *p_obj = p_prv->p_next, *p_next; p_obj != nullptr; p_obj = p_next) {
        p_next = p_obj->p_next;
        if (fn(p_obj, arg) != 0)
            return 0;
    }
    return 1;
}

void slnk_serialize(int dir, slnk* p_head)
{
    for (slnk *p_obj = p_head, *p_next; p_obj != nullptr && p_obj->p_next != nullptr; p_obj = p_next) {
        if (dir == 1) {
            p_next = p_obj->p_next;
            p_obj->p_next = node_at((address(p_next) - address(p_obj)) / slnk_word_bytes);
        } else {
            p_next = node_at(address(p_obj) + address(p_obj->p_next) * slnk_word_bytes);
            p_obj->p_next = p_next;
        }
    }
}
