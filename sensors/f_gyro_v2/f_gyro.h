// The gyroscope's command, gspt.
#pragma once

void f_gyro_init();
