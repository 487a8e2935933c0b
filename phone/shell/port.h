// The station's port: /dev/ttyGS0 of the phone and DIR/ttyGS0 of the host are the two ends of one pseudo
// terminal in raw mode, with no relay between. Pulling the cable hangs the program's end up; the station's
// open terminal survives that, and a restart of the phone too.
#pragma once

namespace phone {

void port_attach();

} // namespace phone
