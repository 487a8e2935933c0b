// The microphone bias of this platform: a sequence of codec registers.
#pragma once

void mpvc_brenk_init();
