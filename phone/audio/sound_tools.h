// The shell tools arec and aplay: they record from the sound card and play to it as the program's own streams
// do, by the phone's clock, and read and write WAV files of the phone.
#pragma once

namespace phone {

void sound_tools_attach();

} // namespace phone
