// The menu: what a script's calls cost beside bare C functions, a redrawn page beside memset and memcpy of a
// frame, and, on the virtual phone, the time from a touch to the page that it changes.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <thread>
#include <unistd.h>

#include "bench_panel.h"
#include "cfg/cfg.h"
#include "client/control_client.h"
#include "dcp/dcp.h"
#include "luigi/luigi.h"
#include "row.h"
#include "screen_linux/screen_linux.h"
#include "screenconf/screenconf.h"

namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

void start_program()
{
    bench_panel(2);
    dcp_init();
    dcp_case_set(0);
    cfg_init();
    cfg_set_int("luigi", "canvas_padding", 8);
    cfg_set_int("luigi", "button_padding", 30);
    luigi_init();
}

// Each pair in turns, the least of the repetitions; nanoseconds a call.
const char* const script = R"(
local function bare(name) return assert(package.loadlib(BARE, name)) end
local results = {}
local function pair(name, count, subject, base)
  local least = { math.huge, math.huge }
  for turn = 1, 40 do
    for which, f in ipairs({ subject, base }) do
      local t = os.clock()
      f(count)
      least[which] = math.min(least[which], os.clock() - t)
    end
  end
  results[#results + 1] = name .. '|' .. least[1] / count * 1e9 .. '|' .. least[2] / count * 1e9
end
assert(screen.init() == 1)
local width, none = screen.get_width, bare('bare_number')
pair('screen.get_width()', 100000,
     function(n) for i = 1, n do width() end end, function(n) for i = 1, n do none() end end)
local pixel, three = screen.put_pixel, bare('bare_three')
pair('screen.put_pixel(x, y, colour)', 100000,
     function(n) for i = 1, n do pixel(100, 200, 300) end end,
     function(n) for i = 1, n do three(100, 200, 300) end end)
local texts = bare('bare_texts')
pair('qat("case?")', 20000,
     function(n) for i = 1, n do qat('case?') end end,
     function(n) for i = 1, n do texts('case?') end end)
local root = canvas.new()
canvas.add(root, label.new('Hardware test'))
for i = 1, 8 do canvas.add(root, button.new('Test ' .. i, function() end)) end
taboret.push(root)
pair('page of eight buttons', 5,
     function(n) for i = 1, n do taboret.update() end end, function() end)
local f = io.open(OUT .. '.part', 'w')
f:write(table.concat(results, '\n'), '\n')
f:close()
os.rename(OUT .. '.part', OUT)
)";

struct pair_times {
    double subject;
    double base;
};

std::map<std::string, pair_times> run_script(const std::string& bare)
{
    std::map<std::string, pair_times> results;
    const std::string base =
        std::filesystem::temp_directory_path() / ("hvt-menu-bench-" + std::to_string(getpid()));
    std::ofstream(base + ".lua") << "local OUT, BARE = '" << base << ".out', '" << bare << "'\n" << script;
    luigi_message msg{};
    msg.type = LUIGI_MSG_START;
    msg.a = reinterpret_cast<std::uintptr_t>(strdup((base + ".lua").c_str()));
    luigi_send_message(&msg);
    for (int turn = 0; turn < 6000 && !std::filesystem::exists(base + ".out"); turn++)
        std::this_thread::sleep_for(10ms);
    std::ifstream file(base + ".out");
    for (std::string name, subject, yardstick;
         std::getline(file, name, '|') && std::getline(file, subject, '|') && std::getline(file, yardstick);)
        results[name] = {std::strtod(subject.c_str(), nullptr), std::strtod(yardstick.c_str(), nullptr)};
    std::filesystem::remove(base + ".lua");
    std::filesystem::remove(base + ".out");
    return results;
}

// memset and memcpy in the memory that the menu draws in.
double frame_ns()
{
    std::uint8_t* const frame = screen_linux_get_screen_info(SCREEN_MAIN)->map_base;
    double least = 1e18;
    for (int turn = 0; turn < 200; turn++) {
        const auto start = steady_clock::now();
        std::memset(frame, turn, frame_bytes);
        std::memcpy(frame + frame_bytes, frame, frame_bytes);
        const auto end = steady_clock::now();
        least = std::min(least, std::chrono::duration<double, std::nano>(end - start).count());
    }
    return least;
}

// The page's colour changes with each touch; the time until the panel shows it.
int touch_to_page(const std::string& phone_program)
{
    std::string dir = std::filesystem::temp_directory_path() / "hvt-menu-bench-XXXXXX";
    if (mkdtemp(dir.data()) == nullptr)
        return 1;
    std::filesystem::create_directories(dir + "/root/system/scripts");
    std::ofstream(dir + "/root/system/scripts/start_korvat.lua")
        << "screen.init() local root, c, n = canvas.new(), custom.new(), 0\n"
           "custom.set_event_touch(c, function() n = n + 1 canvas.set_back_color(root, n) end)\n"
           "canvas.add(root, c) taboret.push(root) qat('dtch=1')\n";
    int over = 1;
    if (std::system((phone_program + " --background " + dir).c_str()) == 0) {
        const int control = control_connect(dir);
        std::string answer;
        control_ask(control, "key 116 tap", answer);
        std::this_thread::sleep_for(500ms);
        double worst = 0;
        for (int n = 1; n <= 50; n++) {
            char wanted[8];
            std::snprintf(wanted, sizeof wanted, "%06X", n);
            const auto start = steady_clock::now();
            control_ask(control, "touch 500 900 tap", answer);
            for (int turn = 0; turn < 2000; turn++)
                if (control_ask(control, "pixel 540 960", answer) && answer == wanted)
                    break;
            const auto end = steady_clock::now();
            worst = std::max(worst, std::chrono::duration<double, std::milli>(end - start).count());
            std::this_thread::sleep_for(std::chrono::milliseconds(40 + n % 20));
        }
        over = bench_figure("from a touch to the redrawn page, the worst of 50", worst, 20 + 15, "ms");
        close(control);
    }
    std::system(("kill $(cat " + dir + "/hvt.pid)").c_str());
    std::this_thread::sleep_for(200ms);
    std::filesystem::remove_all(dir);
    return over;
}

} // namespace

int main()
{
    const std::filesystem::path here = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    start_program();
    const auto results = run_script(here / "libmenu_bare.so");
    if (results.size() != 4) {
        std::puts("the script has failed");
        std::_Exit(1);
    }
    int over = 0;
    const struct {
        const char* name;
        double limit;
    } rows[] = {{"screen.get_width()", 1.3}, {"screen.put_pixel(x, y, colour)", 1.3}, {"qat(\"case?\")", 5}};
    for (const auto& row : rows)
        over += bench_row(row.name, results.at(row.name).subject, results.at(row.name).base, row.limit);
    over += bench_row("page of eight buttons", results.at("page of eight buttons").subject, frame_ns(), 1.25);
    over += touch_to_page(here / "../phone/hvt-virtual");
    std::_Exit(over > 0 ? 1 : 0); // the menu's thread lives on
}
