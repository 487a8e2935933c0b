// The compass's ready line. The chip itself is on the list of board/chips.h.
#pragma once

namespace phone {

void ak8963_attach();

} // namespace phone
