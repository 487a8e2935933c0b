// The touch driver over the kernel's input layer and the panel driver's control node.
#pragma once

// Attaches the driver to the touch interface.
void touch_linux_init();
