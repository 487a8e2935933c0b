// The interrupt line of light and proximity. The chip itself is on the list of board/chips.h.
#pragma once

namespace phone {

void apds9930_attach();

} // namespace phone
