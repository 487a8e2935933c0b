// The parts that a phone is made of, in the order in which they start.
#pragma once

#include <span>

namespace phone {

struct phone_part {
    const char* name;
    void (*attach)(); // adds nodes, tools, control words and configuration keys
    void (*seed)();   // behind phone.conf: what a first start lays into the file tree
    void (*start)();  // behind the seeds: reads its state, starts its threads
};

extern const std::span<const phone_part> phone_parts;

} // namespace phone
