#include "autoinit/autoinit.h"

void autoinit_init() {}

void autoinit(std::span<const autoinit_entry> initcompif, std::span<const autoinit_entry> initcomp,
              std::span<const autoinit_entry> initcompcmd)
{
    for (const auto tier : {initcompif, initcomp, initcompcmd})
        for (const autoinit_entry entry : tier)
            entry();
}
