// The order within each tier is fixed: it is the order in which command tables are searched and listed, and
// drivers rely on what stands before them. A module that isn't built yet has no line.
#include "tiers.h"

#include "cfg/cfg.h"
#include "cio_stdio/cio_stdio.h"
#include "cio_tty/cio_tty.h"
#include "cio_v2/cio.h"
#include "f_kill/f_kill.h"
#include "f_poff/f_poff.h"
#include "f_qat/f_qat.h"
#include "f_usb/f_usb.h"
#include "fsm/fsm.h"
#include "queue/queue.h"
#include "t_vers/t_vers.h"
#include "uevent/uevent.h"
#include "usb/usb.h"
#include "usb_linux/usb_linux.h"
#include "vers/vers.h"
#include "vers_linux/vers_linux.h"

namespace {

// clang-format off

// Interfaces: clear their state, set up their lists, open what they alone own.
constexpr autoinit_entry initcompif[] = {
    cio_dev_init,
    fsm_init,
    uevent_init,
    usb_init,
    vers_init,
};

// Drivers: attach a callout table to their interface.
constexpr autoinit_entry initcomp[] = {
    cfg_init,
    cio_stdio_init,
    cio_tty_init,
    queue_init,
    usb_linux_init,
    vers_linux_init,
};

// Commands: add a command table.
constexpr autoinit_entry initcompcmd[] = {
    cio_cmd_init,
    f_qat_init,
    f_kill_init,
    f_poff_init,
    f_usb_init,
    t_vers_init,
};

// clang-format on

} // namespace

constinit const std::span<const autoinit_entry> tier_initcompif = initcompif;
constinit const std::span<const autoinit_entry> tier_initcomp = initcomp;
constinit const std::span<const autoinit_entry> tier_initcompcmd = initcompcmd;
