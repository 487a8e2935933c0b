#include "runner/report.h"

#include <cstdio>

namespace {

std::string seconds_text(double seconds)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.3f", seconds);
    return text;
}

std::string json_text(const std::string& bytes)
{
    std::string text = "\"";
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        char hex[8];
        if (c == '"' || c == '\\') {
            text += '\\';
            text += c;
        } else if (c == '\n') {
            text += "\\n";
        } else if (byte < 0x20) {
            std::snprintf(hex, sizeof hex, "\\u%04x", byte);
            text += hex;
        } else {
            text += c;
        }
    }
    return text + "\"";
}

// What XML has no way to say is left out.
std::string xml_text(const std::string& bytes)
{
    std::string text;
    for (const char c : bytes) {
        if (c == '<')
            text += "&lt;";
        else if (c == '>')
            text += "&gt;";
        else if (c == '&')
            text += "&amp;";
        else if (c == '"')
            text += "&quot;";
        else if (c == '\n')
            text += "&#10;";
        else if (static_cast<unsigned char>(c) >= 0x20)
            text += c;
    }
    return text;
}

const char* verdict_text(verdict what)
{
    return what == verdict::passed ? "passed" : what == verdict::failed ? "failed" : "skipped";
}

struct tally {
    int tests = 0;
    int failed = 0;
    int skipped = 0;
    double seconds = 0;
};

std::string attributes_of(const tally& t)
{
    return " tests=\"" + std::to_string(t.tests) + "\" failures=\"" + std::to_string(t.failed) +
           "\" skipped=\"" + std::to_string(t.skipped) + "\" time=\"" + seconds_text(t.seconds) + "\">\n";
}

std::string junit_case(const report_row& row)
{
    std::string text = "    <testcase classname=\"" + xml_text(row.file) + "\" name=\"" +
                       xml_text(row.title) + (row.run > 1 ? " (run " + std::to_string(row.run) + ")" : "") +
                       "\" time=\"" + seconds_text(row.seconds) + "\"";
    if (row.what == verdict::passed)
        return text + "/>\n";
    const std::string tag = row.what == verdict::failed ? "failure" : "skipped";
    return text + ">\n      <" + tag + " message=\"line " + std::to_string(row.line) + ": " +
           xml_text(row.message) + "\"/>\n    </testcase>\n";
}

} // namespace

std::string report_text(const report_row& row, int runs)
{
    if (row.what == verdict::passed)
        return {};
    if (row.what == verdict::skipped)
        return "skipped, " + row.message + ": " + row.title + "\n";
    return row.file + ":" + std::to_string(row.line) + ": " + row.title +
           (runs > 1 ? " (run " + std::to_string(row.run) + " of " + std::to_string(runs) + ")" : "") + ": " +
           row.message + "\n";
}

std::string report_json(const report_row& row)
{
    return "{\"file\": " + json_text(row.file) + ", \"case\": " + json_text(row.title) +
           ", \"run\": " + std::to_string(row.run) + ", \"result\": \"" + verdict_text(row.what) +
           "\", \"line\": " + std::to_string(row.line) + ", \"seconds\": " + seconds_text(row.seconds) +
           ", \"message\": " + json_text(row.message) + "}\n";
}

std::string report_junit(const std::vector<report_row>& rows)
{
    tally all;
    std::string suites;
    for (std::size_t from = 0; from < rows.size();) {
        tally t;
        std::string cases;
        std::size_t at = from;
        for (; at < rows.size() && rows[at].file == rows[from].file; at++) {
            t.tests++;
            t.failed += rows[at].what == verdict::failed ? 1 : 0;
            t.skipped += rows[at].what == verdict::skipped ? 1 : 0;
            t.seconds += rows[at].seconds;
            cases += junit_case(rows[at]);
        }
        suites += "  <testsuite name=\"" + xml_text(rows[from].file) + "\"" + attributes_of(t) + cases +
                  "  </testsuite>\n";
        all = {all.tests + t.tests, all.failed + t.failed, all.skipped + t.skipped, all.seconds + t.seconds};
        from = at;
    }
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<testsuites" + attributes_of(all) + suites +
           "</testsuites>\n";
}
