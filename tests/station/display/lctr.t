#: Switches the lights of a zone.
#: lctr=ZONE,1[,LEVEL[,SUBZONE]] | on: LEVEL 0 to 255, 128 when left out; SUBZONE 0, also when left out, is the whole
#:   zone, 1 and up one light of it. A further value isn't used
#: lctr=ZONE[,0] | off
#: lctr=? | the zones of this phone with their subzones
#: Zones of this phone: 3 the display's backlights (1 panel, 2 white LEDs), 13 the notification LED (1 red, 2 green, 3
#: blue), 255 all of them. Answers with one blank; another zone, or a light that fails, is `ERROR`.
# Lights by zone, down to the brightness attributes.

one subzone or all of them
  #: The red light of the notification LED, fully on:
  send     lctr=13,1,255,1 -> LCTR: ,OK
  file     /sys/class/leds/red/brightness   -> 255
  # it is green since the start
  file     /sys/class/leds/green/brightness -> 255
  file     /sys/class/leds/blue/brightness  -> 0\n
  # of a level a byte counts: 0x107 is 7
  send     lctr=13,1,0x107,0 -> LCTR: ,OK
  file     /sys/class/leds/red/brightness   -> 7
  file     /sys/class/leds/green/brightness -> 7
  file     /sys/class/leds/blue/brightness  -> 7
  send     lctr=13,0 -> LCTR: ,OK
  file     /sys/class/leds/red/brightness   -> 0

both backlights to 128 without a level, and a subzone that isn't there changes nothing
  send     lctr=3,1 -> LCTR: ,OK
  file     /sys/class/leds/lcd-backlight/brightness  -> 128
  file     /sys/class/leds/wled:backlight/brightness -> 128
  send     lctr=3,1,9,2,77 -> LCTR: ,OK
  file     /sys/class/leds/lcd-backlight/brightness  -> 128
  file     /sys/class/leds/wled:backlight/brightness -> 9
  send     lctr=3,1,1,3 -> LCTR: ,OK
  file     /sys/class/leds/wled:backlight/brightness -> 9

zone 255 is every row of the map
  send     lctr=255,1,10 -> LCTR: ,OK
  file     /sys/class/leds/red/brightness            -> 10
  file     /sys/class/leds/lcd-backlight/brightness  -> 10
  file     /sys/class/leds/wled:backlight/brightness -> 10

a zone that the phone lacks
  #: This phone has no keyboard to light:
  send     lctr=2,1 -> LCTR: ,ERROR

an LED that doesn't take its level ends the walk
  phone    fail write /sys/class/leds/green/brightness
  send     lctr=13,1,33 -> LCTR: ,ERROR
  file     /sys/class/leds/red/brightness            -> 33
  file     /sys/class/leds/blue/brightness           -> 0\n

there is nothing to read, and the help
  send     lctr? -> SYNTAX
  send     lctr=?
  expect   LCTR:Light zone control,LCTR:id(  3=main display         2 subzone(s)),LCTR:id( 13=MMI                  3 subzone(s)),LCTR:id(255=all                  5 subzone(s)),LCTR:act(1=on,0=off),LCTR:sub id(0-255),LCTR:prm(see itp db),lctr      (0-0xFF)[,(0,1)[,(0-0xFF)[,0-0xFF[,0-0xFF]]]]     set(zone,act,lvl,sub,prm),OK
