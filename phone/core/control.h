// The control port, DIR/control: one request a line, answered by any number of lines and "ok" or "error:
// ...". Devices add the words that set them from outside; `help` lists them. Each connection has a thread.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/notice.h"

namespace phone {

// What lasts from request to request of one connection.
struct connection {
    int fd = -1;                                  // -1: nobody's, as for a line of phone.conf
    std::string from = {};                        // its folder for files, empty until it has named one
    bool within = false;                          // and it can name no file outside
    std::shared_ptr<watcher> p_watcher = nullptr; // once it has watched
    int handed_out = -1;                          // a descriptor that goes with the answer and is closed then
};

struct request {
    std::string word;              // the first
    std::vector<std::string> args; // the words behind the first
    std::string rest;              // the same as one text, blanks as given
    std::string answer;            // lines joined by line ends; an empty answer is "ok" alone
    connection* p_connection = nullptr;
    bool only_looks = false; // set by a word that has changed nothing, so that nobody is told
};

// Where a file of the host lies that a request names: a relative one counts from the folder that the asker
// has named (the word `from`), else from DIR. For a connection that stays within its folder (the word
// `within`) that folder is the root of all paths.
std::string request_file(const request& rq, std::string_view file);

// The text of a request behind its first `before` words but for the last `behind`, blanks as given: a file's
// name may hold some. Quotes around it go.
std::string request_text(const request& rq, std::size_t before, std::size_t behind);

// Carries out a request; the result is empty, or why it can't be done.
using word_fn = std::string (*)(request& rq);

// `usage` shows the values, `help` says the effect in a few words. A word without a usage is refused with
// anything behind it. Only before control_start.
void word_add(std::string_view name, std::string_view usage, std::string_view help, word_fn fn);

// Carries out one request line; the result is what goes back, final line included.
std::string control_request(std::string_view line, connection* p_connection = nullptr);

// The words `help`, `from` and `within`.
void control_attach();

// Opens the port and serves it. The result is empty, or what is wrong.
std::string control_start();

} // namespace phone
