// hvt-virtual: the program on the virtual phone, in one process.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "check/check.h"
#include "core/conf.h"
#include "core/life.h"
#include "core/log.h"
#include "core/table.h"
#include "core/text.h"
#include "plat/plat.h"
#include "s_qat_korvat/s_qat_korvat.h"

namespace {

int usage()
{
    std::fputs("usage: hvt-virtual [--background] [--speed F] DIR\n"
               "Starts the virtual phone that lives in the folder DIR.\n"
               "  --background   returns when the program serves its console\n"
               "  --speed F      lives F times as fast as real time, 1 to 1000\n",
               stderr);
    return 2;
}

bool read_options(int argc, char** argv, phone::start_options& options)
{
    for (int i = 1; i < argc; i++) {
        if (std::strcmp(argv[i], "--background") == 0) {
            options.background = true;
        } else if (std::strcmp(argv[i], "--speed") == 0 && i + 1 < argc) {
            char* end;
            options.speed = std::strtod(argv[++i], &end);
            if (*end != '\0' || !(options.speed >= 1 && options.speed <= 1000))
                return false;
        } else if (argv[i][0] != '-' && options.dir.empty()) {
            options.dir = argv[i];
        } else {
            return false;
        }
    }
    return !options.dir.empty();
}

// The lines `setting` of phone.conf go to the program.
void hand_on_settings()
{
    static std::vector<s_setting> all;
    for (const phone::conf_setting& s : phone::conf_settings())
        all.push_back(
            {s.module.c_str(), s.key.c_str(), s.number ? nullptr : s.value.c_str(), s.number.value_or(0)});
    s_set_open(all);
}

// What a menu script prints, for its author.
void show_print(std::string_view text)
{
    constexpr std::size_t most_shown = 1000;
    phone::log_line(phone::log_kmsg, "phone: print: " + phone::escaped(text.substr(0, most_shown)));
}

} // namespace

int main(int argc, char** argv)
{
    phone::start_options options;
    if (!read_options(argc, argv, options))
        return usage();
    const std::string wrong = phone::life_on(options, argv);
    if (!wrong.empty()) {
        std::fprintf(stderr, "hvt: %s\n", wrong.c_str());
        std::_Exit(1);
    }
    plat_attach(&phone::phone_co);
    check_watch(phone::life_program_stopped);
    s_watch_print(show_print);
    hand_on_settings();
    const int status = s_main(argc, argv);
    phone::log_flush();
    // The phone's threads live on; what they use must not be torn down.
    std::_Exit(status);
}
