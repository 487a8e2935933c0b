// The commands of the contactless chips, `nfpu` to `nffd`: each checks its values, calls one operation of the
// current chip and prints one line. Whether a chip is powered up is kept here, by `nfpu` and `nfpd` alone.
#pragma once

void f_nfc_init(); // tier entry
