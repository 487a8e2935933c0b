// The words of the control port that look into the sound card and set it from outside: mixer, listen, source,
// loop, pcm.
#pragma once

namespace phone {

void sound_words_attach();

} // namespace phone
