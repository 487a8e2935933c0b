// Named settings, by module and key: the board module sets them at start-up, drivers read them. A key that
// nobody set is not found, and its reader takes its built-in default. Not for values that change at run time:
// there is no lock. cfg_init stands in the driver tier; everything is set after the tiers have run.
#pragma once

#include <cstdint>

#include "slnk/slnk.h"

constexpr int CFG_TYPE_WORD = 0;
constexpr int CFG_TYPE_STR = 1;
constexpr int CFG_TYPE_INT = 2;
constexpr int CFG_TYPE_LAST = 3;

struct cfg_item {
    slnk lnk;
    int type;
    const char* module;
    const char* key;
    std::uintptr_t data; // CFG_TYPE_STR: the text's address, valid until the key is set again
};

// Empties the list.
void cfg_init();

// Creates or updates a setting, whose type never changes. `module` and `key` are kept as pointers; of a
// string value a copy is kept.
void cfg_set(const char* module, const char* key, int type, std::uintptr_t value);
void cfg_set_str(const char* module, const char* key, const char* text);
void cfg_set_int(const char* module, const char* key, std::uint32_t number);

// The item, or NULL.
const cfg_item* cfg_find(const char* module, const char* key);

// The value if the key was set, otherwise the reader's default. The key's type must be the one asked for.
const char* cfg_get_str(const char* module, const char* key, const char* otherwise);
std::uint32_t cfg_get_int(const char* module, const char* key, std::uint32_t otherwise);

// The first item in the order of module, then key; slnk_next on its link walks on. NULL if there is none.
const cfg_item* cfg_get_first_item();
