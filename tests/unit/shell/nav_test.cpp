#include <gtest/gtest.h>
#include <string>

#include "nav/nav.h"
#include "unit/exact_text.h"

namespace {

// The values of a line as text: each by its letter in `show` (d signed, x hex, s text, n null), "syntax" for
// a line that doesn't fit, and behind a bar what was left.
std::string values_of(const char* format, std::string_view input, std::string_view show)
{
    const auto line = exact_text(input);
    char* pos = line.get();
    nav_values values;
    const int count = nav_get_val(&values, &pos, format);
    if (count < 0)
        return "syntax";
    std::string out;
    for (int i = 0; i < count; i++) {
        const std::uintptr_t word = values.word[i];
        const char letter =
            static_cast<std::size_t>(i) < show.size() ? show[static_cast<std::size_t>(i)] : 'd';
        out += i ? " " : "";
        if (letter == 's')
            out += word ? reinterpret_cast<const char*>(word) : "null";
        else if (letter == '&')
            out += "&" + std::to_string(*reinterpret_cast<const std::uint32_t*>(word));
        else
            out += std::to_string(static_cast<std::int32_t>(word));
        EXPECT_TRUE(letter == 's' || letter == '&' || word <= UINT32_MAX) << "zero-extended";
    }
    return out + (*pos ? std::string("|") + pos : "");
}

struct value_row {
    const char *title, *format, *input, *show, *values;
};

// clang-format off
constexpr value_row value_rows[] = {
    { "a comma alone is two empty ones",   "%v,%v",    ",",             "",   "0 0"         },
    { "a trailing comma is one more",      "%v,%v",    "5,",            "",   "5 0"         },
    { "a left out first one",              "%v,%v",    ",5",            "",   "0 5"         },
    { "the last directive repeats",        "%x,%x",    "2c,d,9,1f",     "",   "44 13 9 31"  },
    { "a short format doesn't",            "%d",       "1,2",           "",   "syntax"      },
    { "an empty format takes none",        "",         "1",             "",   "syntax"      },
    { "but met when the format has them",  "%s, %v",   "\"a\", 4",      "s",  "a 4"         },
    { "and missed",                        "%s, %v",   "\"a\",4",       "s",  "syntax"      },
    { "a repeat begins at the blank",      "%s, %v",   "\"a\", 4 5",    "s",  "a 4 5"       },
    { "%v takes hex with its prefix",      "%v,%v",    "0x1F,-0x10",    "",   "31 -16"      },
    { "%d with a prefix all the same",     "%d,%d",    "0xff,-3",       "",   "255 -3"      },
    { "%f is thousandths",                 "%f,%f",    "-7.8125,3",     "",   "-7812 3000"  },
    { "%c is any character",               "%c,%c",    ",,\xff",        "",   "44 255"      },
    { "%c at the end isn't passed",        "%v,%c",    "1,",            "",   "1 0"         },
    { "%t takes all the rest",             "%v,%t",    "1,a,\"b",       "ds", "1 a,\"b"     },
    { "%t of nothing",                     "%v,%t",    "1,",            "ds", "1 "          },
    { "a text without quotes is null",     "%s,%v",    ",4",            "s",  "null 4"      },
    { "and leaves what isn't its own",     "%s,%v",    "a",             "s",  "syntax"      },
    { "a text ends at the line's end",     "%s,%v",    "\"abc",         "s",  "abc"         },
    { "a backslash protects a quote",      "%s,%v",    "\"a\\\"b\",1",  "s",  "a\\\"b 1"    },
    { "and itself at the end",             "%s,%v",    "\"a\\",         "s",  "a\\"         },
    { "registers",                         "%v,%v",    "R0,r32",        "",   "0 0"         },
    { "nor one that wraps to 0",           "%v",       "R4294967296",   "",   "syntax"      },
    { "nor one below 0",                   "%v",       "R-1",           "",   "syntax"      },
    { "the address of a value",            "%v,%p",    "&77,&0x10",     "&&", "&77 &16"     },
    { "the address of a register",         "%v",       "&R5",           "&",  "&0"          },
    { "& and * cancel out",                "%v",       "&*5",           "",   "5"           },
    { "nor through a register",            "%p",       "*R1",           "",   "syntax"      },
    { "nor in two steps",                  "%v",       "**0x1000",      "",   "syntax"      },
    { "three steps",                       "%v",       "***5",          "",   "syntax"      },
    { "nor as a text",                     "%s",       "*4096",         "",   "syntax"      },
    { "a text has no address",             "%s",       "&\"a\"",        "",   "syntax"      },
    { "the others pass over the levels",   "%d,%x",    "**1,&&&f",      "",   "1 15"        },
    { "a literal must be met",             "a%v",      "b1",            "",   "syntax"      },
    { "sixteen values",  "%v,%v", "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16", "",
                         "1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16"                           },
    { "seventeen",       "%v,%v", "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17", "", "syntax" },
    { "a used-up format reads all that it can say", "%v,%v",
                         "1,2,0x3,R0,-5,,7,12x8,4294967305,08", "", "1 2 3 0 -5 0 7 8 9 8"           },
    { "a letter behind a number in it", "%v,%v", "1,2,3a,4",      "",   "syntax"      },
    { "another separator in it",        "%v,%v", "1,2,3;4",       "",   "syntax"      },
    { "another directive in it",        "%d,%v,%x", "1,2,a,b,c",  "",   "1 2 10 11 12" },
};
// clang-format on

TEST(Nav, Values)
{
    for (const value_row& row : value_rows) {
        SCOPED_TRACE(row.title);
        EXPECT_EQ(values_of(row.format, row.input, row.show), row.values);
    }
}

TEST(Nav, WhatBeginsNoActionIsASyntaxError)
{
    char other[] = "x";
    char* pos = other;
    EXPECT_EQ(nav_get_action(&pos), NAV_SYNTAX);
    EXPECT_EQ(pos, other);
}

} // namespace
