// The PN65, the first contactless chip: its link on bus 2 and its firmware download on bus 10, and the words
// `pn65` and `pn65dl`.
#pragma once

#include <cstdint>

namespace phone {

// The two sides of the chip that raise its ready line.
enum class pn65_side { link, download };

// One side has something to read, or no longer: the line is high while any has. With the bus locked.
void pn65_ready(pn65_side side, bool ready);

void pn65_attach();
void pn65_download_attach();

} // namespace phone
