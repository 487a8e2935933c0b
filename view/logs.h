// Follows the logs of DIR, DIR/log/NAME, for the pages that show them: what is new since the last look, in
// pieces, so that a log that grows without end costs no more than one that a person can read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "view/page.h"

namespace view {

void logs_open(const std::string& dir, const std::vector<page_ref>& pages);

// A log has new lines: the phone has said so, or its file has changed.
void logs_changed(std::string_view name);

// A page wants a log from now on: it is sent its last lines.
void logs_show(page& p, std::string_view name);

} // namespace view
