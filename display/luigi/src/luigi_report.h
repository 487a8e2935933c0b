// How a script that failed is told: to the kernel log, and on the panel.
#pragma once

#include <string>

// A line for the record.
void luigi_report_log(const std::string& message);

// A page that says what and where, and in `hint` how to go on; the panel is brought up for it when no script
// had done so.
void luigi_report_page(const std::string& message, const char* hint);
