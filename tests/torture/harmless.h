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
    { "access /dev/tty0",     "no console is as good as one in graphics mode" },
    { "open /sys/kernel/debug/regulator/krait2/", "the answer tells it by 0 or 1", "smps" },
    { "read /sys/kernel/debug/regulator/krait2/", "likewise", "smps" },
    { "write /sys/kernel/debug/regulator/krait2/", "likewise", "smps" },
    { "open /dev/max1187x_ctrl", "a driver that isn't there yet is waited for", "dtch" },
    { "timer_",               "the kernel log tells it, and the next timer arms for all", "dtch" },
    { "ioctl /dev/graphics/", "the answer is about the figure alone", "dfig" },
    { "access /system/etc/firmware/touch_module", "a link that stays is in the way of the new one, and that is told" },
    { "closedir ",            "the walk is over" },
    { "ta_close ",            "likewise" },
    { "ta_getnextid ",        "the library gives the end of its walk and a failure alike" },
    { "ioctl /dev/diag",      "a version that can't be had is empty", "vers=3" },
    { "ioctl /dev/diag",      "the driver's word on its filter is dropped", "ftmc=202" },
    { "ioctl /dev/diag",      "the record's length shows it", "ftmc=205" },
    { "ioctl /dev/i2c-5",     "time-out and retries are wishes; a transfer that fails is \"no ack\"" },
    { "lseek /dev/gpio",      "a node that was just opened stands at its beginning" },
    { "open /dev/gpio544",    "without its supply the RF identity is a voltage that fits no variant" },
    { "write /dev/gpio544",   "likewise" },
    { "open /dev/gpio547",    "a variant pin that can't be read counts as inactive" },
    { "read /dev/gpio547",    "likewise" },
    { "open /sys/kernel/debug/regulator/8941_l17/", "a regulator without a readable level goes on as it is" },
    { "read /sys/kernel/debug/regulator/8941_l17/", "likewise" },
    { "open /sys/class/regulator/", "the list of the help ends where a name can't be read" },
    { "read /sys/class/regulator/", "likewise" },
    { "open /sys/devices/system/cpu/", "a mode passes over what an offline processor lacks; the help shows no text" },
    { "open /sys/module/",    "likewise" },
    { "write /sys/devices/system/cpu/", "likewise" },
    { "write /sys/module/",   "likewise" },
    { "read /sys/devices/system/cpu/", "likewise" },
    { "read /sys/module/",    "likewise" },
};
// clang-format on
