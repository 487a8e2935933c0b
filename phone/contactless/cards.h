// What lies before the antenna of the two contactless chips, and the secure element behind them: the words
// `tag` and `swp`. How a chip finds them is its own affair.
#pragma once

namespace phone {

// Cards of a kind ('a', 'b', 'f', 'v'), or of any kind (0).
int cards_there(char kind);

bool secure_element_there();

// Has `fn` called, with no lock held, when the cards have changed. Only while devices attach.
void cards_listen(void (*fn)());

void cards_attach();

} // namespace phone
