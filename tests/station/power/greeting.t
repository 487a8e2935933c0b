# The station is greeted once at each connection, whatever the terminators are.

a phone with the cable in greets at its start
  phone    port -> > TP,OK\\r\\n

a phone without one is silent until the cable comes
  write    /sys/devices/virtual/android_usb/android0/state DISCONNECTED\n
  phone    port ->
  phone    usb on
  expect   TP,OK
  send     case? -> CASE:false,OK

each new connection is greeted once
  phone    usb off | idle | usb on
  expect   TP,OK
  phone    uevent kernel change@/devices/virtual/android_usb/android0;ACTION=change;DEVPATH=x;SUBSYSTEM=x;USB_STATE=CONFIGURED
  send     case? -> CASE:false,OK

a disconnection right after the start that the attribute denies is passed over, once
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=DISCONNECTED
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=CONFIGURED
  send     case? -> CASE:false,OK
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=DISCONNECTED
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=CONFIGURED
  expect   TP,OK

an event counts only from the kernel, of this device, below 1024 bytes and with its state in the fourth field
  # the first one uses up the check of a connection that was there at the start
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=DISCONNECTED
  phone    uevent forged change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=DISCONNECTED
  phone    uevent kernel change@/devices/virtual/android_usb/android1;A;B;C;USB_STATE=DISCONNECTED
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;USB_STATE=DISCONNECTED
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;D;USB_STATE=DISCONNECTED
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=DISCONNECTED;\*1000{x}
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=CONFIGURED
  send     case? -> CASE:false,OK
  # ten fields are looked at in any case
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=DISCONNECTED;5;6;7;8;9;10;11;12;13
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=CONFIGURED;5;6;7;8;9;10;11;12;13
  expect   TP,OK
  # an empty string is no field
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;;B;;C;USB_STATE=DISCONNECTED
  phone    uevent kernel change@/devices/virtual/android_usb/android0;;A;B;C;USB_STATE=CONFIGURED
  expect   TP,OK

without the state attribute nobody is greeted, and the console works
  conf     without /sys/devices/virtual/android_usb/android0/state
  strange  any
  phone    port ->
  send     case? -> CASE:false,OK

a product whose messages of the cable come from another device
  conf     setting usb_linux uevent_path /devices/other
  # the first one uses up the check of a connection that was there at the start
  phone    uevent kernel change@/devices/other;A;B;C;USB_STATE=DISCONNECTED
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=DISCONNECTED
  phone    uevent kernel change@/devices/virtual/android_usb/android0;A;B;C;USB_STATE=CONFIGURED
  send     case? -> CASE:false,OK
  phone    uevent kernel change@/devices/other;A;B;C;USB_STATE=DISCONNECTED
  phone    uevent kernel change@/devices/other;A;B;C;USB_STATE=CONFIGURED
  expect   TP,OK
