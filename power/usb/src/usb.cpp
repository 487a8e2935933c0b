#include "usb/usb.h"

#include "callout/callout.h"

namespace {

const usb_co* p_usb_co;
slnk usb_lst_head;

} // namespace

void usb_init()
{
    p_usb_co = nullptr;
    slnk_init(&usb_lst_head);
}

void usb_co_attach(const usb_co* p_co)
{
    p_usb_co = p_co;
}

int usb_start()
{
    return callout(p_usb_co, &usb_co::start, 0);
}

int usb_set(int item, int val)
{
    return callout(p_usb_co, &usb_co::set, 0, item, val);
}

int usb_get(int item, int* p_val)
{
    return callout(p_usb_co, &usb_co::get, 0, item, p_val);
}

void usb_evt_attach(usb_listener* p_rec, void (*cb)(unsigned event))
{
    p_rec->cb = cb;
    slnk_add(&usb_lst_head, &p_rec->link);
}

void usb_evt_detach(usb_listener* p_rec)
{
    slnk_remove(&usb_lst_head, &p_rec->link);
}

void usb_evt(unsigned mask)
{
    // The way on is taken from the node after its call: a record that detaches itself keeps its link.
    for (slnk* p = slnk_next(&usb_lst_head); p; p = slnk_next(p)) {
        auto* p_rec = reinterpret_cast<usb_listener*>(p);
        if (p_rec->mask & mask)
            p_rec->cb(p_rec->mask & mask);
    }
}
