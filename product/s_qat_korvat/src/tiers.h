// The three tiers of components, in the order in which they run.
#pragma once

#include <span>

#include "autoinit/autoinit.h"

extern const std::span<const autoinit_entry> tier_initcompif;
extern const std::span<const autoinit_entry> tier_initcomp;
extern const std::span<const autoinit_entry> tier_initcompcmd;
