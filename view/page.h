// One page in a browser, as the server knows it: what it wants to be told, and what waits to be sent to it.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "view/link.h"
#include "view/tiles.h"

namespace view {

constexpr int display_count = 2; // the panel, and the monitor on the HDMI cable

struct page {
    std::set<std::string, std::less<>>
        wants{}; // "screen0", "log port", "lamps": nothing else is sent unasked
    std::deque<std::string> texts{};
    std::size_t text_bytes = 0; // of these
    tiles_page seen[display_count]{};
    bool unseen[display_count]{}; // a whole picture was sent and the page hasn't said that it shows it
    std::string keeps_as{};       // the name of the file whose content comes next
    std::unique_ptr<link> requests{};
    std::function<void()> wake; // there is something to send
};
using page_ref = std::shared_ptr<page>;

// Queues a message. One that is only a part of a stream is left out when the page doesn't keep up.
void page_tell(page& p, std::string text);
void page_tell_some(page& p, std::string text);

} // namespace view
