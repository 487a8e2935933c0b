#include "line_reader.h"

#include <cstring>

#include "plat/plat.h"

line_reader::line_reader(const char* path) : file(plat_fopen(path, "r")) {}

const char* line_reader::next()
{
    while (file != nullptr && std::fgets(line, ROOM, file.get()) != nullptr)
        if (std::strncmp(line, "//", 2) != 0)
            return line;
    return nullptr;
}
