// Driver of `smps` for this board: each processor has a regulator of its own, "krait0" to "krait3".
#pragma once

void smps_brenk_init(); // tier entry
