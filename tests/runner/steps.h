// Runs the steps of a case of a transcript, against a virtual phone of its own or a real port.
#pragma once

#include <string>

#include "runner/transcript.h"

constexpr int default_limit_ms = 30'000; // of an expectation

struct case_result {
    int line;          // of the step that went wrong
    std::string wrong; // empty: passed
    double seconds;
};

// Whether a case has steps that need more than a station's port.
bool needs_phone(const test_case& c);

// `real_port` is -1 for a fresh virtual phone; each expectation waits `limit_ms` at most.
case_result run_case(const test_case& c, int real_port, int limit_ms);
