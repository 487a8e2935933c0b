// A file's whole content, empty where there is none.
#pragma once

#include <fstream>
#include <sstream>
#include <string>

inline std::string file_text(const std::string& path)
{
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}
