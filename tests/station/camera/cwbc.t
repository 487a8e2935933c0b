#: Reads what the white balance calibration of a camera needs.
#: cwbc=4 | reads red, green, blue and brightness of the active camera
#: cwbc=3 | the reading: red, green, blue, brightness
#: cwbc=1 | clears it
#: cwbc=2 | stores it; `ERROR` on this phone, which has no unit for it
#: cwbc=7[,CHANNEL] | one brightness in hexadecimal; this phone has none: 0xFFFFFFFF, `ERROR`
#: cwbc=8,X,Y,W,H | meters in a window of a grid of 16 x 16 from now on, until a reading
#: Those that tell nothing answer with the bare name.

a reading of each camera is shown and cleared
  send     cwbc=4 -> CWBC:,ERROR
  send     caml=1 -> CAML:,OK
  #:
  send     cwbc=4 -> CWBC:,OK
  #:
  send     cwbc=3 -> CWBC:412,655,387,529,OK
  send     caml=2 -> CAML:,OK
  send     cwbc=4 -> CWBC:,OK
  send     cwbc?3 -> CWBC:398,601,342,488,OK
  send     cwbc=1 -> CWBC:,OK
  send     cwbc=3 -> CWBC:0,0,0,0,OK
  phone    fail drns_get_parameter 0x29 1
  send     cwbc=4 -> CWBC:,ERROR

a window is 16 x 16 flags, and its mode lasts until the reading
  send     caml=1 -> CAML:,OK
  send     cwbc=8,14,1,5,2 -> CWBC:,OK
  phone    camera 1 param 28 -> 08000000 | camera 1 param 29 -> \*30{00}0101\*14{00}0101\*208{00}
  send     cwbc=4 -> CWBC:,OK
  phone    camera 1 param 28 -> 02000000
  send     cwbc=8,0x10001,65535,1,1 -> CWBC:,OK
  phone    camera 1 param 29 -> \*256{00}

what can't be stored or read
  send     tact=1 -> TACT:,OK
  send     cwbc=2 -> CWBC:,ERROR
  send     caml=1 -> CAML:,OK
  send     cwbc=7 -> CWBC:0xFFFFFFFF,ERROR
  send     cwbc=8,1,2,3 -> CWBC:,ERROR
  send     cwbc=5 | cwbc -> CWBC:,SYNTAX
  send     cwbc=? -> CWBC:,cwbc      (1-4,7-8)                                         White balance calibration,SYNTAX
  send     cwbc=?1 -> CWBC:White balance calibration.,cwbc      (1-4,7-8)                                         White balance calibration,OK
