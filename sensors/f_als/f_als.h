// The ambient light sensor's command, lsen.
#pragma once

void f_als_init();
