// Tests of a radio that take bytes from the station and give bytes back, whose meaning is the chip's alone:
// the texts in and out and the words for too few and too many. No command of its own; the commands name the
// radio's operation.
#pragma once

#include <cstddef>
#include <cstdint>

// No test takes or gives more.
constexpr std::size_t BYTES_TEST_MOST = 20;

struct bytes_test {
    const char* name;
    bool hexadecimal;       // how bytes are written: hexadecimal, or decimal
    std::size_t most;       // bytes, each way
    const char* failed;     // the text of a failure
    bool refused_is_syntax; // a result of 5 means a wrong value
    // The radio's operation: 0 for success, 4 where it isn't there. `p_out` has room for `most` bytes; a
    // count above that says that there were more.
    int (*run)(const std::uint8_t* p_bytes, std::size_t count, std::uint8_t* p_out, std::size_t* p_count);
};

struct bytes_test_input {
    std::uint8_t bytes[BYTES_TEST_MOST + 1];
    std::size_t count;
};

// Takes `text` (null for none) apart. False, and the station has been told, when it holds no byte or too
// many.
bool bytes_test_read(const bytes_test& test, int id, const char* text, bytes_test_input& input);

// Runs the test and answers the station; the result is the command's status.
int bytes_test_run(const bytes_test& test, int id, const bytes_test_input& input);
