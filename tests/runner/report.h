// What came of transcripts, for people and for a factory's systems: text, JUnit XML, JSON lines.
#pragma once

#include <string>
#include <vector>

enum class verdict { passed, failed, skipped };

struct report_row {
    std::string file;
    std::string title;
    int run;  // from 1, when the cases are run more than once
    int line; // of the case, or of the step that went wrong
    verdict what;
    std::string message; // why it failed or was skipped
    double seconds;
};

// One row as text; nothing for a case that has passed.
std::string report_text(const report_row& row, int runs);

// One row as a JSON object, a line end behind it.
std::string report_json(const report_row& row);

// All rows as a JUnit file, a suite for each transcript.
std::string report_junit(const std::vector<report_row>& rows);
