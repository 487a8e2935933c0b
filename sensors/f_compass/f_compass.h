// The compass's command, ecmt.
#pragma once

void f_compass_init();
