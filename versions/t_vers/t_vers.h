// The command `vers`: what program, application system and modem the phone runs.
#pragma once

// Entry of the command tier.
void t_vers_init();
