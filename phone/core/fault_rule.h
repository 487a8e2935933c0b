// What the word `fail` arms: how a rule is written, read and met. Counting calls and keeping the rules is the
// watch's (core/watch.h).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace phone {

enum class fault_kind { eio, shortened, eof, slow };

// How much of a call's or target's text a pattern has to be.
enum class match { part, whole, words };

struct fault_rule {
    std::string pattern;   // empty: any call
    std::int64_t skip = 0; // calls that fit and are let pass first
    std::int64_t passed = 0;
    std::int64_t left = 1; // how many still fail; -1 for good
    fault_kind kind = fault_kind::eio;
    std::int64_t slow_ms = 0;
    std::int64_t hits = 0;
    match how = match::part;
    bool counted_only = false; // calls that `calls` lists
};

// Reads the words behind `fail`, `rest` as one text. The result is empty, or what isn't understood; `note` is
// what the bench should know of a rule that is taken.
std::string fault_rule_read(std::vector<std::string> args, std::string_view rest, fault_rule& rule,
                            std::string& note);

// "read /data/text, 2 left, eio, 0 hits"
std::string fault_rule_text(const fault_rule& rule);
// The pattern as a bench would write it, also of a rule without one: "call 3".
std::string fault_rule_name(const fault_rule& rule);

// Whether a rule that isn't used up meets a call or target; `transfer`: one that can be cut short.
bool fault_rule_fits(const fault_rule& rule, std::string_view text, bool transfer);

} // namespace phone
