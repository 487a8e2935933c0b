#: Switches the dynamic backlight, which this phone lacks.
#: dynbl=ON | 0 or 1; nothing happens, and that is `OK`

on and off
  #:
  send     dynbl=1 -> DYNBL: ,OK
  send     dynbl=0 -> DYNBL: ,OK
  file     /sys/class/leds/lcd-backlight/brightness -> 102\n

anything else
  send     dynbl=2 | dynbl -> DYNBL: ,SYNTAX
  send     dynbl? -> SYNTAX
