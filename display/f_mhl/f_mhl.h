// The commands `mhls`, `mhlr` and `mhlt`: a person's verdict on the picture, what it was, and the bridge's
// tests.
#pragma once

void f_mhl_init();
