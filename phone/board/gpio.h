// The GPIO lines, /dev/gpioN: 0 to 173 of the main chip, 544 to 579 of the power chip. A line's level comes
// from the bench (the word `gpio`), else from the program when it drives the line, else from a device, else
// from its pull. Any thread.
#pragma once

namespace phone {

void gpio_attach();

// The level of a line, 0 or 1.
int gpio_level(unsigned line);

// A device drives a line to 0 or 1, or lets go (-1).
void gpio_drive(unsigned line, int level);

// Has `fn` called, with no lock held, each time the level of `line` changes. Only while devices attach.
void gpio_listen(unsigned line, void (*fn)(unsigned line, int level));

// A line that moves with time: `fn` is called, with no lock held, before anybody reads the level of `line`,
// and drives it to where it is now; it doesn't ask for the level itself. Who listens to the line hears of a
// change when somebody reads. Only while devices attach.
void gpio_live(unsigned line, void (*fn)(unsigned line));

} // namespace phone
