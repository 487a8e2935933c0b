// Driver of `vers`: the version of the application system, from /proc/version.
#pragma once

// Entry of the driver tier.
void vers_linux_init();
