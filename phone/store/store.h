// The persistent units as the bench sees them: the word `unit`, the units of a new phone, and what the store
// libraries get of the phone.
#pragma once

namespace phone {

void store_attach();
void store_seed();

} // namespace phone
