// The registers of the WCD9320 codec behind the debugfs file of its kernel driver: reading gives a line for
// each register, writing "0x1b4 0x27" sets one. What the mixer does (mixer.h) isn't derived from them.
#pragma once

namespace phone {

void codec_attach();
void codec_seed();

} // namespace phone
