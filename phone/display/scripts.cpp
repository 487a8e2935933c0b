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
    for (const auto& entry : std::filesystem::directory_iterator(program.parent_path() / "scripts", error)) {
        if (entry.path().extension() != ".lua")
            continue;
        std::ifstream file(entry.path(), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        home_seed("/system/scripts/" + entry.path().filename().string(), text.str());
    }
}

} // namespace phone
