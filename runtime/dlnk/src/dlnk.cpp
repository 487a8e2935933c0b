#include "dlnk/dlnk.h"

void dlnk_init(dlnk* p_lnk)
{
    p_lnk->p_prev = p_lnk;
    p_lnk->p_next = p_lnk;
}

dlnk* dlnk_add(dlnk* p_pos, dlnk* p_obj)
{
    p_obj->p_prev = p_pos;
    p_obj->p_next = p_pos->p_next;
    p_pos->p_next->p_prev = p_obj;
    p_pos->p_next = p_obj;
    return p_obj->p_next;
}

dlnk* dlnk_insert(dlnk* p_pos, dlnk* p_obj)
{
    return dlnk_add(p_pos->p_prev, p_obj);
}

dlnk* dlnk_remove(dlnk* p_obj)
{
    if (p_obj->p_next == nullptr)
        dlnk_init(p_obj);
    dlnk* p_next = p_obj->p_next;
    p_obj->p_prev->p_next = p_next;
    p_next->p_prev = p_obj->p_prev;
    dlnk_init(p_obj);
    return p_next;
}

dlnk* dlnk_next(const dlnk* p_pos)
{
    return p_pos->p_next;
}

dlnk* dlnk_prev(const dlnk* p_pos)
{
    return p_pos->p_prev;
}

dlnk* dlnk_for_each(const dlnk* p_head, int (*fn)(dlnk* p_obj, void* arg), void* arg)
{
    for (dlnk *p_obj = p_head->p_next, *p_next; p_obj != p_head; p_obj = p_next) {
        p_next = p_obj->p_next;
        if (fn(p_obj, arg) != 0)
            return p_obj;
    }
    return nullptr;
}
