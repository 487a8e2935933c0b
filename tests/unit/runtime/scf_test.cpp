#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "scf/scf.h"
#include "unit/exact_text.h"

namespace {

struct number_row {
    const char* title;
    const char* text;
    unsigned radix;
    std::int32_t value;
    const char* rest;
};

// clang-format off
constexpr number_row numbers[] = {
    { "nothing is 0 and nothing is used",            "",             10, 0,           ""     },
    { "a comma is 0 and isn't used",                 ",",            10, 0,           ","    },
    { "0x works in radix 10",                        "0x1F",         10, 31,          ""     },
    { "an X in the middle discards what came before","12x5",         10, 5,           ""     },
    { "and so does a second one",                    "0x12X34",      16, 0x34,        ""     },
    { "the sign stays over an X",                    "-0x10",        10, -16,         ""     },
    { "both cases are digits of radix 16",           "aBcD",         16, 0xABCD,      ""     },
    { "a sign ends a number",                        "5-3",          10, 5,           "-3"   },
    { "a second sign is none",                       "--3",          10, 0,           "-3"   },
    { "there is no plus sign",                       "+3",           10, 0,           "+3"   },
    { "a sign alone is used up",                     "-",            10, 0,           ""     },
    { "32 bits wrap",                                "4294967297",   10, 1,           ""     },
    { "the top bit is the sign",                     "ffffffff",     16, -1,          ""     },
};
// clang-format on

TEST(Scf, NumbersFromText)
{
    for (const number_row& row : numbers) {
        SCOPED_TRACE(row.title);
        const auto text = exact_text(row.text);
        const char* p = text.get();
        EXPECT_EQ(scf_ascii_to_bin(&p, row.radix), row.value);
        EXPECT_STREQ(p, row.rest);
    }
}

// Every one byte behind a digit: strtoul knows which ones are digits of the radix.
TEST(Scf, OnlyDigitsAndXContinueANumber)
{
    for (unsigned radix : {2U, 8U, 10U, 16U})
        for (int c = 1; c < 256; c++) {
            const auto text = exact_text({"1\0", 2});
            text[1] = static_cast<char>(c);
            if (c == 'x' || c == 'X')
                continue;
            char digit[2] = {static_cast<char>(c), 0};
            char* p_end;
            const unsigned long d = std::strtoul(digit, &p_end, static_cast<int>(radix));
            const bool is_digit = c > ' ' && *p_end == 0;
            const char* p = text.get();
            EXPECT_EQ(scf_ascii_to_bin(&p, radix), is_digit ? static_cast<int>(radix + d) : 1) << c;
            EXPECT_EQ(p - text.get(), is_digit ? 2 : 1) << c;
        }
}

TEST(Scf, DecimalFractions)
{
    // clang-format off
    const number_row rows[] = {
        { "a fraction",                      "1.5",               1000, 1500,    ""    },
        { "the finest one",                  "-0.001",            1000, -1,      ""    },
        { "finer ones are cut",              "0.0019",            1000, 1,       ""    },
        { "towards 0 on both sides",         "-7.8129",           1000, -7812,   ""    },
        { "no digit before the point",       ".25",               1000, 250,     ""    },
        { "no digit behind it",              "3.,4",              1000, 3000,    ",4"  },
        { "a second point starts anew",      "1.2.3",             1000, 12300,   ""    },
        { "more digits than 32 bits hold",   "1.23456789012345",  1000, 1234,    ""    },
        { "a hundred digits divide by no 0", "0.0000000000000000000000000000000000000000000000000000000000"
                                             "000000000000000000000000000000000000000000000001", 1000, 0, "" },
        { "another scale",                   "0.5",               256,  128,     ""    },
    };
    // clang-format on
    for (const number_row& row : rows) {
        SCOPED_TRACE(row.title);
        const auto text = exact_text(row.text);
        const char* p = text.get();
        EXPECT_EQ(scf_ascii_to_fixedpoint(&p, static_cast<int>(row.radix)), row.value);
        EXPECT_STREQ(p, row.rest);
    }
}

TEST(Scf, NumbersToText)
{
    char txt[40];
    std::mt19937 random(1);
    for (int i = 0; i < 2000; i++) {
        const auto value = static_cast<std::uint32_t>(random() >> random() % 32);
        for (unsigned radix : {2U, 7U, 10U, 16U}) {
            EXPECT_EQ(*scf_uint_to_ascii(txt, value, radix), 0);
            EXPECT_EQ(std::strtoul(txt, nullptr, static_cast<int>(radix)), value);
        }
        scf_sint_to_ascii(txt, static_cast<std::int32_t>(value), 10);
        EXPECT_EQ(txt, std::to_string(static_cast<std::int32_t>(value)));
    }
    scf_sint_to_ascii(txt, INT32_MIN, 10);
    EXPECT_STREQ(txt, "-2147483648");
    EXPECT_EQ(scf_uint_to_ascii(txt, 0, 10), txt + 1);
    EXPECT_STREQ(txt, "0");
}

// No size is overrun, and what is cut is cut at whole items: an item with its separator takes the five
// characters that must be left for it.
TEST(Scf, HexStopsInTime)
{
    const std::uint8_t data[] = {0xAB, 0xCD, 0xEF};
    const char* const texts[] = {"", "0xab", "0xab,0xcd", "0xab,0xcd,0xef"};
    const int counts[] = {0, 5, 10, 14};
    for (int size = 1; size <= 20; size++) {
        const auto txt = std::make_unique<char[]>(static_cast<std::size_t>(size));
        const int whole = std::min(size / 5, 3);
        EXPECT_EQ(scf_bin_to_hexstr(txt.get(), size, data, 3, 1, ','), counts[whole]) << size;
        EXPECT_STREQ(txt.get(), texts[whole]) << size;
    }
}

TEST(Scf, SplittingInPlace)
{
    const auto items = [](const char* str, int max) {
        const auto text = exact_text(str);
        char* ptrs[8];
        const int count = scf_split(text.get(), ptrs, max, ',');
        return std::vector<std::string>(ptrs, ptrs + count);
    };
    using list = std::vector<std::string>;
    EXPECT_EQ(items("a,,b", 8), (list{"a", "b"}));
    EXPECT_EQ(items(",a", 8), (list{"a"}));
    EXPECT_EQ(items("one,two,", 8), (list{"one", "two"}));
    EXPECT_EQ(items("a,b,c", 2), (list{"a", "b"}));
    EXPECT_EQ(items(",,,", 8), list{});
    EXPECT_EQ(items("", 8), list{});
    EXPECT_EXIT(scf_split(nullptr, nullptr, 0, ','), testing::ExitedWithCode(1), "^$");
}

} // namespace
