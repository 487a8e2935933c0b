#include "rlnk/rlnk.h"

#include <type_traits>

static_assert(std::is_standard_layout_v<rlnk>, "a dlnk of the list must be its rlnk");

void rlnk_init(rlnk* p_lnk, std::uint32_t rank)
{
    dlnk_init(&p_lnk->lnk);
    p_lnk->rank = rank;
}

rlnk* rlnk_next(const rlnk* p_lnk)
{
    return reinterpret_cast<rlnk*>(dlnk_next(&p_lnk->lnk));
}

std::uint32_t rlnk_insert(rlnk* p_head, rlnk* p_lnk)
{
    const std::uint64_t distance = p_lnk->rank;
    std::uint64_t before = 0; // wider than a rank: the last node may be further off than a rank can say
    rlnk* p_pos = rlnk_next(p_head);
    while (p_pos != p_head && before + p_pos->rank <= distance) {
        before += p_pos->rank;
        p_pos = rlnk_next(p_pos);
    }
    dlnk_insert(&p_pos->lnk, &p_lnk->lnk);
    p_lnk->rank = static_cast<std::uint32_t>(distance - before);
    if (p_pos != p_head)
        rlnk_adjust(p_lnk, p_lnk->rank);
    return p_lnk->rank;
}

rlnk* rlnk_remove(rlnk* p_head, rlnk* p_lnk)
{
    rlnk* p_next = reinterpret_cast<rlnk*>(dlnk_remove(&p_lnk->lnk));
    if (p_next != p_head && p_next != p_lnk)
        p_next->rank += p_lnk->rank;
    return p_next;
}

rlnk* rlnk_derank(rlnk* p_head, std::uint32_t rank)
{
    rlnk* p_first = rlnk_next(p_head);
    if (p_first != p_head)
        p_first->rank = rank;
    return p_first;
}

void rlnk_adjust(rlnk* p_lnk, std::uint32_t delta)
{
    rlnk_next(p_lnk)->rank -= delta;
}
