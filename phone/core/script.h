// The script that a person calls, for messages that say what to type.
#pragma once

#include <cstdlib>
#include <string>

namespace phone {

// As the script that started this program is called: "./hvt" of a checkout, "hvt" where it is installed.
inline std::string script()
{
    const char* const name = std::getenv("HVT_SCRIPT");
    return name != nullptr ? name : "./hvt";
}

} // namespace phone
