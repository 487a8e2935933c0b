// LED and backlight devices over the kernel's brightness attributes.
#pragma once

// Adds the devices to the lights.
void light_linux_init();
