// The platform calls that may fail without the station hearing of it, each with the reason.
#pragma once

struct harmless_row {
    const char* call; // what the call's text begins with, "operation path"
    const char* reason;
    const char* line = ""; // of which command lines, by their beginning
};

// clang-format off
constexpr harmless_row harmless[] = {
    { "system echo \"",       "a line for the kernel log is for the record only" },
    { "close ",               "the descriptor is closed all the same" },
    { "closedir ",            "the walk is over" },
    { "lseek /dev/gpio",      "a node that was just opened stands at its start" },
    { "stat /s",              "what an open file or an entry is like isn't asked for; where it matters it's told" },
    { "umount /sdcard",       "a station may unmount what isn't mounted", "mstt=5,0" },
    { "umount /sdcard",       "only makes sure that it isn't mounted; the umount after that is told", "mstt=4,3" },
    { "open /dev/gpio62",     "a capacity that can't be told is 0", "mstt=1" },
    { "read /dev/gpio62",     "a capacity that can't be told is 0", "mstt=1" },
    { "mount ",               "a capacity that can't be told is 0", "mstt=1" },
    { "statfs ",              "a capacity that can't be told is 0", "mstt=1" },
    { "umount ",              "a capacity that can't be told is 0", "mstt=1" },
    { "open /dev/gpio62",     "only a card that is surely out isn't formatted", "mstt=4,3" },
    { "read /dev/gpio62",     "only a card that is surely out isn't formatted", "mstt=4,3" },
    { "ioctl /dev/graphics/", "the answer is about the figure alone", "dfig" },
};
// clang-format on
