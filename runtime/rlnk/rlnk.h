// A delta list on top of dlnk: the rank of a node is its distance from the node before it, the rank of the
// first node its distance from now, the rank of the head 0. Nodes of equal distance stand in the order of
// insertion. The unit is the user's; the timers use microseconds. There is no lock.
#pragma once

#include <cstdint>

#include "dlnk/dlnk.h"

struct rlnk {
    dlnk lnk; // first, so that a dlnk of the list is its rlnk
    std::uint32_t rank;
};

// A node in no list, or an empty list when `rank` is 0.
void rlnk_init(rlnk* p_lnk, std::uint32_t rank);

// The node behind `p_lnk`, and the first node behind a head; the head at the end of the list.
rlnk* rlnk_next(const rlnk* p_lnk);

// Takes `p_lnk->rank` as the distance from now and links the node at its place. Gives its new rank, the
// distance from its predecessor.
std::uint32_t rlnk_insert(rlnk* p_head, rlnk* p_lnk);

// Unlinks the node and hands its rank on to the node behind it, unless that is the head. Gives the node that
// followed it. A node that is in no list changes nothing.
rlnk* rlnk_remove(rlnk* p_head, rlnk* p_lnk);

// Sets the first node's rank, if the list isn't empty; gives the first node, or the head.
rlnk* rlnk_derank(rlnk* p_head, std::uint32_t rank);

// Subtracts `delta` from the rank of the node behind `p_lnk`, which must not be the head.
void rlnk_adjust(rlnk* p_lnk, std::uint32_t delta);
