// /dev/kmsg: the kernel log. What is written there is kept in DIR/log/kmsg.
#pragma once

namespace phone {

void kmsg_attach();

} // namespace phone
