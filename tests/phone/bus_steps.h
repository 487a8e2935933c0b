// Steps on the registers of a chip, in hex: "35<AA 00=FA" writes AA to 35 and expects FA of 00.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <sstream>
#include <string>

// Takes the steps in their order through `write(reg, value)` and `read(reg)`.
template <typename Write, typename Read>
void bus_steps(const std::string& text, Write write, Read read)
{
    std::istringstream steps(text);
    for (std::string step; steps >> step;) {
        unsigned reg, value;
        char kind;
        ASSERT_EQ(std::sscanf(step.c_str(), "%x%c%x", &reg, &kind, &value), 3) << step;
        if (kind == '<')
            write(static_cast<std::uint8_t>(reg), static_cast<std::uint8_t>(value));
        else
            EXPECT_EQ(read(static_cast<std::uint8_t>(reg)), static_cast<int>(value))
                << step << " of " << text;
    }
}
