# The automatic power-off: a phone off the cable goes down after a while, and so does one with a low battery. It
# checks every 60 s. The time of 300 s runs from the first check that finds the cable gone.

six minutes without the cable and the phone goes off
  # checks at 0, 60, ... s; the one at 60 s begins the time, those from 120 s on take 60 s of it each, and the
  # one at 360 s ends it
  phone    clock hold | usb off | clock +350000 | idle | shell 1 -> 0 echo 1 > /dev/wcnss_wlan
  # as if the phone couldn't go off, so that its log can be looked at; it goes off at the next check
  phone    fail system reboot | clock +20000
  phone    shell 2 -> 0 echo "Powering off after long inactivity." > /dev/kmsg\n0 sync
  phone    clock run | speed 1000
  off

a battery below 3100 mV for three seconds ends it, with the cable or without
  # the checks at 60 and 120 s: 3100 mV are enough; two bad seconds are none
  phone    clock hold | battery 3100 -200 | clock +70000 | battery 3099 -200 | clock +51500
  phone    battery 3100 -200 | clock +10000 | shell 1 -> 0 echo 1 > /dev/wcnss_wlan
  # at 180 s and on
  phone    battery 3099 -200 | fail system reboot | clock +55000
  phone    shell 2 -> 0 echo "Powering off, Battery low voltage." > /dev/kmsg\n0 sync
  # on a charger there is no estimate, and that ends the check
  phone    battery 3000 200 | clock +70000
  send     case? -> CASE:false,OK
  phone    battery 3000 -200 | clock run | speed 1000
  off

the cable in time sets the time back
  # gone from 0 to 200 s, there at the check at 240 s, gone from 260 s on: the time begins at 300 s and would end
  # at 600 s; without the cable between it would end at 360 s
  phone    clock hold | usb off | clock +200000 | idle | usb on
  expect   TP,OK
  phone    clock +60000 | usb off | clock +200000 | idle | usb on
  expect   TP,OK
  send     case? -> CASE:false,OK

a state attribute that can't be read counts for nothing
  conf     without /sys/devices/virtual/android_usb/android0/state
  strange  any
  phone    clock hold | clock +420000
  send     case? -> CASE:false,OK
