// A singly linked, intrusive list. A node is the first member of the record that it links; a head is a node
// of its own that belongs to no record, and an empty list is a head whose p_next is NULL. The caller supplies
// the nodes and keeps them valid while they are linked. There is no lock and no count.
#pragma once

struct slnk {
    slnk* p_next;
};

// Makes the list empty.
void slnk_init(slnk* p_head);

// Links `p_obj` directly behind `p_prv`, which may be the head.
void slnk_insert(slnk* p_prv, slnk* p_obj);

// Links `p_obj` at the tail; gives `p_obj`.
slnk* slnk_add(slnk* p_head, slnk* p_obj);

// Unlinks `p_obj`, or does nothing if it isn't in the list; gives `p_obj`. Its own p_next stays as it was, so
// that a walk that stands on it can go on.
slnk* slnk_remove(slnk* p_head, slnk* p_obj);

// Unlinks and gives the node behind `p_obj`; NULL if there is none.
slnk* slnk_remove_next(slnk* p_obj);

// The node behind `p_prv`, or NULL.
slnk* slnk_next(const slnk* p_prv);

// Calls `fn(node, arg)` for each node behind `p_prv` in order. A non-zero result of `fn` stops the walk,
// which then gives 0; a finished walk gives 1. `fn` may unlink or free the node that it is given.
int slnk_for_each(const slnk* p_prv, int (*fn)(slnk* p_obj, void* arg), void* arg);

// Converts the links of a list that lies in a flat image, in place, the head's included. `dir` 1 turns each
// pointer into the distance to the next node in words of 4 bytes, the last one into 0; `dir` 0 turns such
// distances back into pointers. Nodes lie a multiple of 4 bytes apart.
void slnk_serialize(int dir, slnk* p_head);
