// The panel's own registers, as the display driver's debugfs reaches them, and /dev/vsync_measurement.
#pragma once

namespace phone {

void panel_attach();
void panel_seed();

} // namespace phone
