// The proximity sensor's command, proxs.
#pragma once

void f_prox_init();
