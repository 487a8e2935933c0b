# The automatic power-off: a phone off the cable goes down after a while, and so does one with a low battery. It
# checks every 60 s. The time of 300 s runs from the first check that finds the cable gone.

six minutes without the cable and the phone goes off
  # checks at 0, 60, ... s; the one at 60 s begins the time, those from 120 s on take 60 s of it each, and the
  # one at 360 s ends it
  phone    clock hold
  phone    usb off
  phone    clock +350000
  phone    idle
  phone    shell 1 -> 0 echo "Korvat HVT is starting up..." > /dev/kmsg
  phone    clock run
  phone    speed 1000
  off

the cable in time sets the time back
  # gone from 0 to 200 s, there at the check at 240 s, gone from 260 s on: the time begins at 300 s and would end
  # at 600 s; without the cable between it would end at 360 s
  phone    clock hold
  phone    usb off
  phone    clock +200000
  phone    idle
  phone    usb on
  read     TP,OK\r\n
  phone    clock +60000
  phone    usb off
  phone    clock +200000
  phone    idle
  phone    usb on
  read     TP,OK\r\n
  send     case?
  expect   CASE:false,OK

a phone on the cable stays on
  phone    clock hold
  phone    clock +420000
  send     case?
  expect   CASE:false,OK

a state attribute that can't be read counts for nothing
  conf     without /sys/devices/virtual/android_usb/android0/state
  strange  any
  phone    clock hold
  phone    clock +420000
  send     case?
  expect   CASE:false,OK
