#include "verdict.h"

#include <array>

#include "input_linux/input_linux.h"
#include "plat/plat.h"
#include "tmr/tmr.h"

namespace {

constexpr const char* RESULT_FILE = "/system/modules/mhl_sii8334_result.txt";
constexpr mode_t RESULT_RIGHTS = 0777;

constexpr int LOOKS = 26; // one a second
constexpr std::uint32_t LOOK_PERIOD_MS = 1000;

constexpr char NONE = '\0';
constexpr char GOOD = '1';
constexpr char BAD = '0';

struct verdict_row {
    int code;
    char verdict;
};

// clang-format off
constexpr verdict_row verdicts[] = {
    { INPUT_KEY_VOLUME_UP,   GOOD },
    { INPUT_KEY_BACK,        GOOD },
    { INPUT_KEY_VOLUME_DOWN, BAD  },
    { INPUT_KEY_MENU,        BAD  },
};
// clang-format on

// All input devices, open while the guard lives. A number without a device doesn't end the search.
class input_devices {
public:
    input_devices()
    {
        for (unsigned i = 0; i < fds.size(); i++)
            fds[i] = input_open(i);
    }
    ~input_devices()
    {
        for (const int fd : fds)
            if (fd >= 0)
                plat_close(fd);
    }
    input_devices(const input_devices&) = delete;
    input_devices& operator=(const input_devices&) = delete;

    // The first verdict in all that has come since the last look.
    char look() const
    {
        char found = NONE;
        for (const int fd : fds)
            for (input_event16 event; fd >= 0 && input_read(fd, &event);)
                if (found == NONE)
                    found = verdict_of(event);
        return found;
    }

private:
    static char verdict_of(const input_event16& event)
    {
        if (event.type == INPUT_KEY && event.value == 1)
            for (const verdict_row& row : verdicts)
                if (row.code == event.code)
                    return row.verdict;
        return NONE;
    }

    std::array<int, INPUT_MOST_NODES> fds;
};

char wait_for_verdict()
{
    const input_devices devices;
    char verdict = NONE;
    for (int i = 0; i < LOOKS && verdict == NONE; i++) {
        tmr_msleep(LOOK_PERIOD_MS);
        verdict = devices.look();
    }
    return verdict;
}

bool keep(char verdict)
{
    const int fd = plat_open(RESULT_FILE, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, RESULT_RIGHTS);
    if (fd < 0)
        return false;
    const bool written = plat_write(fd, &verdict, 1) == 1;
    plat_close(fd);
    return written;
}

} // namespace

int mhl_sii8334_switch_mode(int on)
{
    if (on == 0)
        return 1;
    const char verdict = wait_for_verdict();
    return verdict != NONE && keep(verdict) ? 1 : 0;
}

int mhl_sii8334_read_result(int* p_result)
{
    const int fd = plat_open(RESULT_FILE, O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return 0;
    char verdict = BAD;
    const bool read = plat_read(fd, &verdict, 1) == 1;
    plat_close(fd);
    *p_result = verdict == GOOD ? 1 : 0;
    return read ? 1 : 0;
}
