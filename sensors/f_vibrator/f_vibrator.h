// The vibrator's commands: vibc switches it, vibt measures it and reports later.
#pragma once

void f_vibrator_init();
