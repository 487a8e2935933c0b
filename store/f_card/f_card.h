// The command of the memory card test, `mstt`.
#pragma once

void f_card_init();
