// The audio commands: aloop, gain, again, aurst, ajdt, adump, arec, aplay, and two that answer and do
// nothing. They put their values into path words, hand these to the audio tests and turn the result into a
// status.
#pragma once

void f_audio_init();
