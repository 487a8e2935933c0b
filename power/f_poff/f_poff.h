// The command `poff`: powers the phone off, at once, after a time, or when the cable is pulled.
#pragma once

void f_poff_init(); // tier entry
