#include "display/scripts.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/home.h"

namespace phone {

// They lie in the folder scripts beside the program.
void scripts_seed()
{
    if (!home_is_first_start())
        return;
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    std::filesystem::directory_iterator it(program.parent_path() / "scripts", error);
    for (const std::filesystem::directory_iterator end; !error && it != end; it.increment(error)) {
        if (it->path().extension() != ".lua")
            continue;
        std::ifstream file(it->path(), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        home_seed("/system/scripts/" + it->path().filename().string(), text.str());
    }
}

} // namespace phone
