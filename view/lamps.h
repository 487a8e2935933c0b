// What the program has switched on: the brightness of each LED and backlight and the motor's voltage, plain
// files below DIR/root. Whoever writes them, the program or a person, the pages hear of it. Also tells when
// DIR goes, and when the file behind `log on` grows.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "view/page.h"

namespace view {

// `gone` is called when DIR has been deleted or moved.
void lamps_open(const std::string& dir, const std::vector<page_ref>& pages, std::function<void()> gone);

// Looks for the files anew: the phone has come on.
void lamps_renew();

// Sends all of them to a page that wants them from now on.
void lamps_show(page& p);

} // namespace view
