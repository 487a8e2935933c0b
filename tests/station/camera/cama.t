#: Measures the tilt of a bright cross in the picture in memory.
#: cama=X,Y,LEVEL | the tilt in degrees, then the first places that reach LEVEL (8 bits) along four lines, column and row
#:   each: from the left at Y rows below the top and above the bottom, from the top at X columns from the left and the
#:   right. X and Y count from 1
#: `ERROR` with no answer: no picture, margins that leave it, a line without such a place.

a cross that is tilted either way
  phone    scene 1 tilt 3
  send     caml=1 -> CAML:,OK
  send     cams=1,0 -> CAMS:,OK
  # At row 10 the bar's middle is at 319.5 + tan 3 * 229.5 = 331.5, its left edge 8 / cos 3 = 8 further left
  #:
  send     cama=10,10,100 -> CAMA:2.99,324,10,300,470,10,216,630,248,OK
  phone    scene 1 tilt -5
  send     cams=1,0 -> CAMS:,OK
  send     cama=10,10,100 -> CAMA:-4.97,292,10,332,470,10,259,630,205,OK
  send     cama=10,10,201 -> ERROR
  send     cama=10,10,0x164,9 -> CAMA:-4.97,292,10,332,470,10,259,630,205,OK

no picture, margins that leave it, too few values
  send     caml=1 -> CAML:,OK
  send     cama=10,10,1 -> ERROR
  send     cams=1,0 -> CAMS:,OK
  send     cama=0,10,1 | cama=10,0,1 | cama=10,241,1 | cama=0xFFFFFFFF,10,1 -> ERROR
  send     cama=1,2 -> SYNTAX
  send     cama=?1,2,3 -> CAMA:Camera Alignment Test,cama      (0-65535),(0-65535)                               camera alignment test,OK
  send     cama=? -> cama      (0-65535),(0-65535)                               camera alignment test,SYNTAX
