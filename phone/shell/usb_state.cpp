#include "shell/usb_state.h"

#include <string>

#include "core/files.h"
#include "core/home.h"
#include "core/uevents.h"

namespace phone {

namespace {

constexpr const char* state_path = "/sys/devices/virtual/android_usb/android0/state";

} // namespace

void usb_state_seed()
{
    home_seed(state_path, "CONFIGURED\n");
}

bool usb_state_configured()
{
    std::string text;
    return !file_read(state_path, text) || !text.starts_with("DISCONNECTED");
}

void usb_state_set(bool configured)
{
    file_write(state_path, configured ? "CONFIGURED\n" : "DISCONNECTED\n");
}

void usb_state_announce(bool configured)
{
    uevents_send(true, {"change@/devices/virtual/android_usb/android0", "ACTION=change",
                        "DEVPATH=/devices/virtual/android_usb/android0", "SUBSYSTEM=android_usb",
                        configured ? "USB_STATE=CONFIGURED" : "USB_STATE=DISCONNECTED", "SEQNUM=1207"});
}

} // namespace phone
