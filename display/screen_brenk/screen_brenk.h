// How this phone's panel tells its identity: through the display driver's debugfs. Setting:
// "screen_brenk"/"panel_debugfs", the folder; without it there is no identity.
#pragma once

void screen_brenk_init();
