// The camera service: both cameras, one open at a time. Frames, pictures and focus runs come on a thread of
// its own in the phone's time; it has nothing to do while no camera works.
#pragma once

namespace phone {

void camera_attach(); // the service's libraries, the kernel module, the tool `start`, the words `scene` and
                      // `camera`
void camera_seed();
void camera_start();

} // namespace phone
