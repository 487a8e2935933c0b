// The station's commands for keys: keyb, and camd and camds for the camera's cover.
#pragma once

// Adds the command table.
void f_kbd_init();
