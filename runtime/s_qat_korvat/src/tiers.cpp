// The order within each tier is fixed: it is the order in which command tables are searched and listed, and
// drivers rely on what stands before them. A module that isn't built yet has no line.
#include "tiers.h"

#include "cfg/cfg.h"
#include "cio_stdio/cio_stdio.h"
#include "cio_tty/cio_tty.h"
#include "cio_v2/cio.h"
#include "f_ftm/f_ftm.h"
#include "f_ftm_gps_gen8/f_ftm_gps_gen8.h"
#include "f_qat/f_qat.h"
#include "fsm/fsm.h"
#include "ftm_linux/ftm_linux.h"
#include "queue/queue.h"
#include "t_vers/t_vers.h"
#include "vers/vers.h"
#include "vers_amss/vers_amss.h"
#include "vers_linux/vers_linux.h"

namespace {

// clang-format off
// Interfaces: clear their state, set up their lists, open what they alone own.
constexpr autoinit_entry initcompif[] = {
    cio_dev_init,
    fsm_init,
    vers_init,
};

// Drivers: attach a callout table to their interface.
constexpr autoinit_entry initcomp[] = {
    cfg_init,
    cio_stdio_init,
    cio_tty_init,
    ftm_init,
    queue_init,
    vers_amss_init,
    vers_linux_init,
};

// Commands: add a command table.
constexpr autoinit_entry initcompcmd[] = {
    cio_cmd_init,
    f_qat_init,
    f_ftm_init,
    f_ftm_gps_init,
    t_vers_init,
};
// clang-format on

} // namespace

constinit const std::span<const autoinit_entry> tier_initcompif = initcompif;
constinit const std::span<const autoinit_entry> tier_initcomp = initcomp;
constinit const std::span<const autoinit_entry> tier_initcompcmd = initcompcmd;
