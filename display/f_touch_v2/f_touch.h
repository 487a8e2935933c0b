// The station's commands for the touch panel: dtch, dtst, dtfd, dtid, dtld. Until a menu starts and takes the
// events, dtch also reports them.
#pragma once

// Adds the command table and attaches the report.
void f_touch_init();
