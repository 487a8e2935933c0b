// The camera driver over the closed client: turns the client's asynchronous operations into the blocking ones
// of `camera`, shows the frames that the client's threads hand over, and keeps the shared memory of frames
// and pictures. What the display and the phone's service need is the platform's half
// (camera_durnspire_qualcomm).
#pragma once

void camera_durnspire_init(); // tier entry: attaches the driver; no client, nothing open
