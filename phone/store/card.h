// The memory card: a block device that can be mounted, its detect line, the tools that format and erase it,
// and the word `card`. Its files are in DIR/card, whether it is in or out, over restarts too.
#pragma once

namespace phone {

void card_attach();
void card_start();

} // namespace phone
