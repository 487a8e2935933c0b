// The displays: fetches a picture when the phone has told of a change and a page can take it, and cuts it
// into tiles. One copy is kept for all pages.
#pragma once

#include <string>
#include <vector>

#include "view/page.h"

namespace view {

// `pages` are asked for their wishes, and woken.
void screens_open(const std::string& dir, const std::vector<page_ref>& pages);

// The display of that slot may show something else.
void screens_changed(std::string_view slot);

// Any display may.
void screens_look_anew();

// All displays may, and their memory is another's: the phone has come on.
void screens_renew();

// A page wants something else, or has shown what it was sent.
void screens_look();

// Appends the next message for a page to `out`; false when there is none.
bool screens_next(page& p, std::vector<std::uint8_t>& out);

} // namespace view
