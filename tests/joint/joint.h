// A whole phone and the program's modules in one process, without the program: a test calls a module as
// another module would, sets the phone by control words, and looks at what arrived. CTest runs each test in a
// process of its own, so on a new phone; its clock stands unless the test lets it run.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

struct Joint : testing::Test {
    static std::string dir; // of the phone

    static void SetUpTestSuite();
    static void TearDownTestSuite();

    // One request to the control port; what it answers, "ok" with its line end left off. Fails the test
    // unless it ends well.
    static std::string ask(std::string_view line);
};
