// The platform's half of the camera driver: loads the kernel module and starts the camera service, and puts
// pictures on the active screen through the overlay of the display driver, turned as the camera is mounted.
// The display turns them itself, or the rotator does, as the product has it.
#pragma once

void camera_durnspire_qualcomm_init(); // tier entry: attaches these operations; nothing open
