#include "ta_generic/ta_generic.h"

#include <cstdint>
#include <cstring>
#include <dlfcn.h>
#include <memory>

#include "check/check.h"
#include "ftm_linux/ftm_linux.h"
#include "plat/plat.h"
#include "ta/ta.h"

namespace {

constexpr std::uint32_t TA_LOW_UNITS = 0x10000; // option 3 reaches the auxiliary units below
constexpr int TA_MODE_READ = 1;
constexpr int TA_PARTITION_MAIN = 1;
constexpr int TA_PARTITION_AUX = 2;

// The closed libraries. Main store: 0 is success. Auxiliary store: 0 is success, no opening.
struct {
    int (*open)(int partition, int mode, int arg);
    int (*close)();
    int (*getsize)(std::uint32_t unit, std::uint32_t* p_size);
    int (*read)(std::uint32_t unit, void* p_buf, std::uint32_t size);
    int (*write)(std::uint32_t unit, const void* p_data, std::uint32_t size);
    int (*del)(std::uint32_t unit);
    int (*format)(int arg, int partition);
    int (*getversion)();
    int (*getmode)(int* p_mode, int* p_partition);
    int (*getnextid)(std::uint32_t* p_id, std::uint32_t* p_aux);
} nvq;

struct {
    int (*read_unit)(std::uint32_t unit, void* p_buf, std::uint32_t* p_size);
    int (*get_unit_size)(std::uint32_t unit, std::uint32_t* p_size);
    int (*write_unit)(std::uint32_t unit, const void* p_data, std::uint32_t size);
    int (*write_unit_critical)(std::uint32_t unit, const void* p_data, std::uint32_t size);
    int (*write_flush)();
} auxnvq;

struct ta_symbol {
    void* p_slot; // a pointer to function
    const char* name;
};

// clang-format off
const ta_symbol nvq_tab[] = {
    { &nvq.open,       "ta_open"       },
    { &nvq.close,      "ta_close"      },
    { &nvq.getsize,    "ta_getsize"    },
    { &nvq.read,       "ta_read"       },
    { &nvq.write,      "ta_write"      },
    { &nvq.del,        "ta_delete"     },
    { &nvq.format,     "ta_format"     },
    { &nvq.getversion, "ta_getversion" },
    { &nvq.getmode,    "ta_getmode"    },
    { &nvq.getnextid,  "ta_getnextid"  },
    {},
};

const ta_symbol auxnvq_tab[] = {
    { &auxnvq.read_unit,           "auxnvq_read_unit"           },
    { &auxnvq.get_unit_size,       "auxnvq_get_unit_size"       },
    { &auxnvq.write_unit,          "auxnvq_write_unit"          },
    { &auxnvq.write_unit_critical, "auxnvq_write_unit_critical" },
    { &auxnvq.write_flush,         "auxnvq_write_flush"         },
    {},
};
// clang-format on

int ta_option;
int ta_status; // 1 while the main store is open
int write_mode;

bool ta_generic_load(const char* name, const ta_symbol* p_tab)
{
    void* const library = plat_dlopen(name, RTLD_NOW);
    if (library == nullptr)
        return false;
    for (; p_tab->p_slot != nullptr; p_tab++) {
        void* const symbol = plat_dlsym(library, p_tab->name);
        if (symbol == nullptr) {
            plat_dlclose(library);
            return false;
        }
        std::memcpy(p_tab->p_slot, &symbol, sizeof symbol);
    }
    return true;
}

bool is_aux(std::uint32_t unit)
{
    return (unit & TA_AUX) != 0;
}

bool may_read_aux(std::uint32_t number)
{
    return ta_option != TA_OPTION_MAIN_ONLY && (ta_option != TA_OPTION_LOW_UNITS || number < TA_LOW_UNITS);
}

bool may_write_aux(std::uint32_t number)
{
    return ta_option == TA_OPTION_ALL || (ta_option == TA_OPTION_LOW_UNITS && number < TA_LOW_UNITS);
}

int ta_generic_open(int write)
{
    if (nvq.open(TA_PARTITION_MAIN, write != 0 ? write_mode | TA_MODE_READ : TA_MODE_READ, 0) != 0)
        return 0;
    ta_status = 1;
    return 1;
}

int ta_generic_close(int)
{
    if (ta_status == 0)
        return 0;
    nvq.close();
    ta_status = 0;
    return 1;
}

int ta_generic_format(int, int)
{
    if (ta_status != 0)
        return 0;
    int failed = nvq.format(2, TA_PARTITION_MAIN);
    if (ta_option == TA_OPTION_ALL)
        failed |= nvq.format(2, TA_PARTITION_AUX);
    return failed == 0 ? 1 : 0;
}

int ta_generic_get_status()
{
    return ta_status;
}

// There are no transactions in these stores.
int ta_generic_set_tran(int)
{
    return 0;
}

int ta_generic_get_size(std::uint32_t unit)
{
    const std::uint32_t number = unit & ~TA_AUX;
    std::uint32_t size = 0;
    const bool found = is_aux(unit) ? may_read_aux(number) && auxnvq.get_unit_size(number, &size) == 0
                                    : ta_status != 0 && nvq.getsize(number, &size) == 0;
    return found && size <= INT32_MAX ? static_cast<int>(size) : 0;
}

int ta_generic_read(std::uint32_t unit, void* p_buf, std::size_t room)
{
    const int size = ta_generic_get_size(unit);
    if (size == 0 || static_cast<std::size_t>(size) > room)
        return 0;
    const std::uint32_t number = unit & ~TA_AUX;
    std::uint32_t taken = static_cast<std::uint32_t>(size);
    const int failed =
        is_aux(unit) ? auxnvq.read_unit(number, p_buf, &taken) : nvq.read(number, p_buf, taken);
    return failed == 0 ? size : 0;
}

int ta_generic_write(std::uint32_t unit, std::size_t size, const void* p_data)
{
    const std::uint32_t number = unit & ~TA_AUX;
    if (size > INT32_MAX)
        return 0;
    const auto size32 = static_cast<std::uint32_t>(size);
    const bool written = is_aux(unit)
                             ? may_write_aux(number) && auxnvq.write_unit(number, p_data, size32) == 0
                             : ta_status != 0 && nvq.write(number, p_data, size32) == 0;
    return written ? 1 : 0;
}

int ta_generic_del(std::uint32_t unit)
{
    return ta_status != 0 && !is_aux(unit) && nvq.del(unit) == 0 ? 1 : 0;
}

// One step of the library's walk, and where it was.
bool walk(std::uint32_t* p_id, int* p_partition)
{
    int mode = 0;
    std::uint32_t aux = 0;
    return nvq.getmode(&mode, p_partition) == 0 && nvq.getnextid(p_id, &aux) == 0;
}

// The main partition has ended: goes on in the other one.
bool walk_aux(std::uint32_t* p_id, int* p_partition)
{
    nvq.close();
    if (nvq.open(TA_PARTITION_AUX, TA_MODE_READ, 0) != 0) {
        ta_status = 0;
        return false;
    }
    return walk(p_id, p_partition);
}

std::uint32_t ta_generic_get_next_id()
{
    if (ta_status == 0)
        return 0;
    std::uint32_t id = 0;
    int partition = 0;
    bool found = walk(&id, &partition);
    if (!found && partition == TA_PARTITION_MAIN && ta_option != TA_OPTION_MAIN_ONLY)
        found = walk_aux(&id, &partition);
    while (found && partition == TA_PARTITION_AUX && ta_option == TA_OPTION_LOW_UNITS && id >= TA_LOW_UNITS)
        found = walk(&id, &partition);
    if (!found)
        return TA_NO_UNIT;
    return partition == TA_PARTITION_AUX ? id | TA_AUX : id;
}

// Asks the modem to move its NV memory into the store, and how far it is.
int ta_generic_xfer_nv_to_ta()
{
    constexpr std::uint8_t request[16] = {0x4B, 0x0B, 0x00, 0x80, 0x07, 0x00};
    constexpr std::uint32_t RESPONSE_ROOM = 32768; // the largest that the channel gives
    constexpr std::size_t RESULT = 10;
    const auto p_response = std::make_unique<std::uint8_t[]>(RESPONSE_ROOM);
    std::uint32_t size = 0;
    if (!ftm_cmd(request, sizeof request, p_response.get(), RESPONSE_ROOM, &size) || size != sizeof request ||
        std::memcmp(p_response.get(), request, 4) != 0)
        return TA_XFER_FAILED;
    return p_response[RESULT] < TA_XFER_FAILED ? p_response[RESULT] : TA_XFER_FAILED;
}

int ta_generic_xfer(std::uint32_t, std::uint32_t, int dir, int, int blocking)
{
    constexpr timespec step{0, 50'000'000};
    constexpr int MOST_STEPS = 72000; // an hour: a modem that is busy for longer has died on the way
    if (dir != 1 || (blocking != 0 && blocking != 1))
        return TA_XFER_FAILED;
    int result = ta_generic_xfer_nv_to_ta();
    for (int i = 0; blocking == 1 && result == TA_XFER_BUSY; i++) {
        if (i == MOST_STEPS)
            return TA_XFER_FAILED;
        plat_nanosleep(&step, nullptr);
        result = ta_generic_xfer_nv_to_ta();
    }
    return result;
}

// clang-format off
constexpr ta_if_co ta_generic_co = {
    .open        = ta_generic_open,
    .close       = ta_generic_close,
    .format      = ta_generic_format,
    .get_status  = ta_generic_get_status,
    .set_tran    = ta_generic_set_tran,
    .get_size    = ta_generic_get_size,
    .get_next_id = ta_generic_get_next_id,
    .read        = ta_generic_read,
    .write       = ta_generic_write,
    .del         = ta_generic_del,
    .xfer        = ta_generic_xfer,
};
// clang-format on

} // namespace

int ta_generic_get_write_mode()
{
    return 2;
}

void ta_generic_init(int option)
{
    ta_if_cmd_co_attach(&ta_generic_co);
    ta_option = option;
    ta_status = 0;
    write_mode = ta_generic_get_write_mode();
    HVT_CHECK(ta_generic_load("libnvq.so", nvq_tab));
    HVT_CHECK(ta_generic_load("libauxnvq.so", auxnvq_tab));
}
