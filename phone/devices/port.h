// The station's port: /dev/ttyGS0 of the phone and DIR/ttyGS0 of the host are the two ends of one pseudo
// terminal in raw mode, with no relay between. Pulling the cable hangs the program's end up; the station's
// open terminal survives that, and a restart of the phone too.
#pragma once

#include <string>

namespace phone {

void port_attach();

// Opens the pseudo terminal and lays the link DIR/ttyGS0. The result is empty, or what is wrong.
std::string port_start();

// The descriptors of the pseudo terminal, to be handed on over an exec, and the call that takes them up
// again.
void port_hand_on(int* p_master, int* p_slave);
void port_inherit(int master, int slave);

// Takes the link away: the phone is off.
void port_stop();

} // namespace phone
