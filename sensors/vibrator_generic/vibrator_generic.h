// The vibrator driver of a motor that is one attribute of the kernel: a voltage in mV, "0" stops it. It can't
// capture.
#pragma once

void vibrator_generic_init();
