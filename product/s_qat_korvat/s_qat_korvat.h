// The board module: the program's entry, the three tiers of components, the board's configuration and the
// start-up sequence. It knows every other module; no other module knows it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

// A named setting (see cfg) that the product leaves open and that the program's main makes.
struct s_setting {
    const char* module;
    const char* key;
    const char* text; // NULL: the value is `number`
    std::uint32_t number;
};

// Settings to be made behind those of the board, in their order. Of a key that is set already the type can't
// change: such a setting is left out, which the kernel log tells. To be called before s_main; the records and
// their texts live as long as the program.
void s_set_open(std::span<const s_setting> settings);

// On the phone what a menu script prints is dropped. For who looks at the program from outside, as the
// virtual phone does: `fn` gets the text of each print, on the script's thread. To be called before s_main.
void s_watch_print(void (*fn)(std::string_view text));

// The whole program: initialises the core modules, then s_entry. plat_attach must have been called. Returns
// 0 when the event loop couldn't start, and not at all otherwise.
int s_main(int argc, char** argv);
