// Driver of `vers`: the version of the modem, asked over the factory test mode channel.
#pragma once

// Entry of the driver tier.
void vers_amss_init();
