// The routes of the codec's mixer, slot by slot.
#pragma once

#include "alsa/alsa.h"

extern alsa_cfg routes_cfg;

// Fills in the table; without a speaker its slots stay empty.
void routes_fill(bool speaker);
