// The second contactless chip: behind the serial line /dev/ttyHSL1, with its supplies and control lines
// behind /dev/tamiro_ctrl, and the word `tamiro`.
#pragma once

namespace phone {

void qxr5170jvk_attach();

} // namespace phone
