// The camera's commands: load, viewfinder, snapshot, focus, the image tests, white balance, the module's
// memory. Each takes its values apart, calls `camera` or `camconf` and prints what came.
#pragma once

void f_camera_init(); // tier entry: adds the command table
