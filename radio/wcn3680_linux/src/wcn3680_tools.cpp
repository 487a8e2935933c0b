// The platform's tools, as all three drivers use them.
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

#include "attr/attr.h"
#include "plat/plat.h"
#include "wcn3680_inner.h"

namespace {

constexpr const char* RESULT_FILE = "/data/ftm_response.txt";
constexpr std::size_t RESULT_ROOM = 256;

constexpr std::size_t OUTPUT_KEPT = 64 * 1024;
constexpr std::size_t OUTPUT_READ = 1024 * 1024;

} // namespace

bool wcn3680_result_get(int* p_number)
{
    char text[RESULT_ROOM];
    if (attr_read(RESULT_FILE, text, sizeof text) != ATTR_OK)
        return false;
    char* p_end;
    errno = 0;
    const long number = std::strtol(text, &p_end, 10);
    // A number that goes on behind the room isn't known.
    if (p_end == text || p_end == text + sizeof text - 1 || errno != 0 || number < INT_MIN ||
        number > INT_MAX)
        return false;
    *p_number = static_cast<int>(number);
    return true;
}

bool wcn3680_output_get(const char* line, std::string& text)
{
    text.clear();
    FILE* const stream = plat_popen(line, "r");
    if (stream == nullptr)
        return false;
    char part[4096];
    std::size_t total = 0;
    std::size_t n;
    while (total < OUTPUT_READ && (n = std::fread(part, 1, sizeof part, stream)) > 0) {
        total += n;
        if (text.size() < OUTPUT_KEPT)
            text.append(part, n);
    }
    const bool read = std::ferror(stream) == 0 && total < OUTPUT_READ;
    return plat_pclose(stream) == 0 && read;
}

int wcn3680_run(const char* line)
{
    return plat_system(line) == 0 ? 1 : 0;
}
