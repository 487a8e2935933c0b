#include "bytes_test/bytes_test.h"

#include <algorithm>

#include "dcp/dcp.h"
#include "scf/scf.h"

namespace {

constexpr int RESULT_OK = 0;
constexpr int RESULT_NOT_THERE = 4;
constexpr int RESULT_REFUSED = 5;

// Each byte with its prefix and comma, and NUL.
constexpr std::size_t TEXT_ROOM = BYTES_TEST_MOST * 5 + 1;

int print_bytes(const bytes_test& test, int id, const std::uint8_t* p_bytes, std::size_t count)
{
    char text[TEXT_ROOM] = "";
    char* p = text;
    if (test.hexadecimal)
        scf_bin_to_hexstr(text, sizeof text, p_bytes, static_cast<int>(count), 1, ',');
    for (std::size_t i = 0; !test.hexadecimal && i < count; i++) {
        if (i > 0)
            *p++ = ',';
        p = scf_uint_to_ascii(p, p_bytes[i], 10);
    }
    return dcp_answer(id, test.name, text, DCP_OK);
}

int failed(const bytes_test& test, int id, int result)
{
    if (result == RESULT_NOT_THERE)
        return dcp_answer(id, test.name, test.failed, DCP_NOT_FOUND);
    const bool syntax = test.refused_is_syntax && result == RESULT_REFUSED;
    return dcp_answer(id, test.name, test.failed, syntax ? DCP_SYNTAX : DCP_ERROR);
}

} // namespace

bool bytes_test_read(const bytes_test& test, int id, const char* text, bytes_test_input& input)
{
    input.count = 0;
    if (text == nullptr)
        return true;
    const int limit = static_cast<int>(std::min(test.most, BYTES_TEST_MOST) + 1);
    const int count = scf_str_to_uint8(input.bytes, limit, text, test.hexadecimal ? 16 : 10);
    input.count = static_cast<std::size_t>(count);
    if (count >= 1 && count < limit)
        return true;
    dcp_printf(id, test.name, count < 1 ? "Too few parameters" : "Too many parameters");
    return false;
}

int bytes_test_run(const bytes_test& test, int id, const bytes_test_input& input)
{
    std::uint8_t out[BYTES_TEST_MOST] = {};
    std::size_t count = 0;
    const int result = test.run(input.bytes, input.count, out, &count);
    if (result != RESULT_OK)
        return failed(test, id, result);
    if (count > test.most)
        return dcp_answer(id, test.name, "Response to large", DCP_ERROR);
    return print_bytes(test, id, out, count);
}
