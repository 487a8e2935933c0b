// The platform calls that may fail without the station hearing of it, each with the reason. A row that no
// line needs fails the campaign.
#pragma once

struct harmless_row {
    const char* call;  // what the call's text begins with, "operation path"
    const char* lines; // of which command lines, by their beginnings between blanks; empty for any line
    const char* reason;
};

// clang-format off
constexpr harmless_row harmless[] = {
    { "close ",                                       "", "the descriptor is closed all the same" },
    { "stat /s",                                      "lcid mstt=2 mstt=3", "what an open file or an entry is like isn't asked for; where it matters it's told" },
    { "umount /sdcard",                               "mstt=5,0", "a station may unmount what isn't mounted" },
    { "umount /sdcard",                               "mstt=4,3", "only makes sure that it isn't mounted; the umount after that is told" },
    { "open /dev/gpio62",                             "mstt=1", "a capacity that can't be told is 0" },
    { "read /dev/gpio62",                             "mstt=1", "a capacity that can't be told is 0" },
    { "mount ",                                       "mstt=1", "a capacity that can't be told is 0" },
    { "statfs ",                                      "mstt=1", "a capacity that can't be told is 0" },
    { "umount ",                                      "mstt=1", "a capacity that can't be told is 0" },
    { "open /dev/gpio62",                             "mstt=4,3", "only a card that is surely out isn't formatted" },
    { "read /dev/gpio62",                             "mstt=4,3", "only a card that is surely out isn't formatted" },
    { "access /dev/tty0",                             "lcdl", "no console is as good as one in graphics mode" },
    { "open /sys/kernel/debug/regulator/krait2/",     "smps", "the answer tells it by 0 or 1" },
    { "read /sys/kernel/debug/regulator/krait2/",     "smps", "likewise" },
    { "write /sys/kernel/debug/regulator/krait2/",    "smps", "likewise" },
    { "open /dev/max1187x_ctrl",                      "dtch", "a driver that isn't there yet is waited for" },
    { "timer_",                                       "dtch", "the kernel log tells it, and the next timer arms for all" },
    { "ioctl /dev/graphics/",                         "dfig", "the answer is about the figure alone" },
    { "access /system/etc/firmware/touch_module",     "dtfd", "a link that stays is in the way of the new one, and that is told" },
    { "closedir ",                                    "adcr batc fgct mstt=2 rfbv temp", "the walk is over" },
    { "ta_close ",                                    "tact=7", "likewise" },
    { "ta_getnextid ",                                "tact=7", "the library gives the end of its walk and a failure alike" },
    { "ioctl /dev/diag",                              "vers=3", "a version that can't be had is empty" },
    { "ioctl /dev/diag",                              "ftmc=202", "the driver's word on its filter is dropped" },
    { "ioctl /dev/diag",                              "ftmc=205", "the record's length shows it" },
    { "ioctl /dev/i2c-5",                             "i2cr= i2cw=", "time-out and retries are wishes; a transfer that fails is \"no ack\"" },
    { "lseek /dev/gpio",                              "adcr=3 mstt rfbv", "a node that was just opened stands at its beginning" },
    { "open /dev/gpio544",                            "adcr=3 rfbv", "without its supply the RF identity is a voltage that fits no variant" },
    { "write /dev/gpio544",                           "adcr=3 rfbv", "likewise" },
    { "open /dev/gpio547",                            "rfbv", "a variant pin that can't be read counts as inactive" },
    { "read /dev/gpio547",                            "rfbv", "likewise" },
    { "open /sys/kernel/debug/regulator/8941_l17/",   "vregctl", "a regulator without a readable level goes on as it is" },
    { "read /sys/kernel/debug/regulator/8941_l17/",   "vregctl", "likewise" },
    { "open /sys/class/regulator/",                   "vregctl=?", "the list of the help ends where a name can't be read" },
    { "read /sys/class/regulator/",                   "vregctl=?", "likewise" },
    { "open /sys/devices/system/cpu/",                "sysmode syscfg=?", "a mode passes over what an offline processor lacks; the help shows no text" },
    { "open /sys/module/",                            "sysmode syscfg=?", "likewise" },
    { "write /sys/devices/system/cpu/",               "sysmode", "likewise" },
    { "write /sys/module/",                           "sysmode", "likewise" },
    { "read /sys/devices/system/cpu/",                "syscfg=?", "likewise" },
    { "read /sys/module/",                            "syscfg=?", "likewise" },
};
// clang-format on
