// The command `grsd`: the carrier-to-noise test of the GPS receiver. The modem measures, and its result comes
// as a record in the log store of the channel.
#pragma once

// Entry of the command tier.
void f_ftm_gps_init();
