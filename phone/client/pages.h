// Long answers for a person: names in columns, entries one below the other, more than a screen in pages. A
// pipe gets the bytes as they come, without any of this.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

// The names that the answer to "list" holds; none when it isn't understood (another line term, an error).
std::vector<std::string> names_of_list(std::string_view answer);

// What a person reads of the answer to `command`, for a terminal of `width` columns: that of list in columns,
// that of help one entry a line, values that don't fit a few lines with breaks behind commas. `names` are the
// commands'.
std::string laid_out(std::string_view command, std::string_view answer, std::size_t width,
                     const std::vector<std::string>& names);

// Shows a text a page at a time; `meanwhile` is called while somebody reads, since a phone waits for nobody.
void show_pages(std::string_view text, const std::function<void()>& meanwhile);

// Columns of the terminal, 80 where there is none.
std::size_t terminal_width();
