// The touch panel: its controller's control node and its input device. Both turn up when the kernel module
// max1187x.ko is loaded. The position is in panel pixels.
#pragma once

namespace phone {

void touch_panel_attach(); // adds the words `touch` and `touchtest` and the key `touch`
void touch_panel_seed();
void touch_panel_start();

} // namespace phone
