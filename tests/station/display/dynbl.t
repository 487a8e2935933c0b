#: Switches the dynamic backlight, which this phone lacks.
#: dynbl=ON | 0 or 1; nothing happens, and that is `OK`

on and off
  #:
  send     dynbl=1
  expect   DYNBL: ,OK
  send     dynbl=0
  expect   DYNBL: ,OK
  file     /sys/class/leds/lcd-backlight/brightness -> 102\n

anything else
  send     dynbl=2
  expect   DYNBL: ,SYNTAX
  send     dynbl
  expect   DYNBL: ,SYNTAX
  send     dynbl?
  expect   SYNTAX
