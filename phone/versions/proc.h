// Files under /proc that a healthy phone has.
#pragma once

namespace phone {

void proc_seed();

} // namespace phone
