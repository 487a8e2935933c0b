// A circular, doubly linked, intrusive list. A node is the first member of the record that it links; the head
// is a node of the same kind that belongs to no record. An empty list is a head that is linked to itself, and
// so is a node that is in no list. The caller supplies the nodes. There is no lock and no count.
#pragma once

struct dlnk {
    dlnk* p_prev;
    dlnk* p_next;
};

// Links the node to itself: an empty list, or a node in no list.
void dlnk_init(dlnk* p_lnk);

// Links `p_obj` directly behind `p_pos`; gives the node now behind `p_obj`.
dlnk* dlnk_add(dlnk* p_pos, dlnk* p_obj);

// Links `p_obj` directly in front of `p_pos`, an append with the head as `p_pos`; gives `p_pos`.
dlnk* dlnk_insert(dlnk* p_pos, dlnk* p_obj);

// Unlinks `p_obj` and links it to itself; gives the node that followed it, itself if it was in no list. A
// node that is all zeroes, so never initialised, counts as one in no list.
dlnk* dlnk_remove(dlnk* p_obj);

dlnk* dlnk_next(const dlnk* p_pos);
dlnk* dlnk_prev(const dlnk* p_pos);

// Calls `fn(node, arg)` from the first node on until it gives non-zero; gives that node, NULL at the end of
// the list. `fn` may unlink or free the node that it is given.
dlnk* dlnk_for_each(const dlnk* p_head, int (*fn)(dlnk* p_obj, void* arg), void* arg);
