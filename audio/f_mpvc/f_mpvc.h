// The commands mpvc (microphone bias) and vadet (plug detection).
#pragma once

void f_mpvc_init();
