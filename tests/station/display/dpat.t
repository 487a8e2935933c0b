# Patterns on the panel of 1080 by 1920. The unit tests hold every pattern to its rule; here is what a station sees.

chess and bars
  send     lcdl=1,0
  expect   LCDL: ,OK
  send     dpat=1
  expect   DPAT: ,OK
  phone    pixel 1 0 -> FFFFFF
  phone    pixel 1 1 -> 000000
  phone    pixel 1079 1919 -> 000000
  send     dpat=7
  expect   DPAT: ,OK
  phone    pixel 359 0 -> FF0000
  phone    pixel 360 0 -> 00FF00
  phone    pixel 720 0 -> 0000FF

the test picture of pattern 0, green ramps and a grey level
  # blocks of 135 by 240: (1080 + 1) / 8 = 135, (1920 + 2) / 8 = 240
  send     lcdl=1,0
  expect   LCDL: ,OK
  send     dpat
  expect   DPAT: ,OK
  phone    pixel 134 0 -> 000000
  phone    pixel 135 0 -> 111111
  phone    pixel 1079 239 -> 777777
  phone    pixel 270 480 -> 00FF00
  phone    pixel 2 960 -> 000000
  phone    pixel 9 1440 -> FFFFFF
  phone    pixel 9 1560 -> 000000
  phone    pixel 10 1560 -> FFFFFF
  phone    pixel 0 1919 -> 7F7F7F
  send     dpat=8
  expect   DPAT: ,OK
  # 1079 * 256 / 1080 = 255; (1080 - 0) * 256 / 1080 = 256, which is bit 16 when shifted by 8
  phone    pixel 1079 959 -> 00FF00
  phone    pixel 0 960 -> 010000
  phone    pixel 1 960 -> 00FF00
  send     dpat=14,128
  expect   DPAT: ,OK
  phone    pixel 9 9 -> 808080
  send     dpat=14
  expect   DPAT: ,OK
  phone    pixel 9 9 -> 000000
  send     dpat=3,128
  expect   SYNTAX

a screen of one pixel takes the start screen and a pattern
  conf     panel 1x1x32 1
  send     lcdl=1
  expect   LCDL: ,OK
  send     dpat=3
  expect   DPAT: ,OK
  phone    pixel 0 0 -> FFFFFF

a number without a pattern changes nothing and is fine
  send     lcdl=1
  expect   LCDL: ,OK
  send     dpat=9
  expect   DPAT: ,OK
  send     dpat=-1
  expect   DPAT: ,OK
  phone    pixel 0 500 -> FFFFFF

without a screen there is no pattern, and the help
  send     dpat=3
  expect   DPAT: ,ERROR
  send     dpat=?
  expect   DPAT:mode(0x0=tv,0x1=chess,0x2=invers chess,0x3=white,0x4=black),DPAT:mode(0x5=black on grey,0x6=medium grey,0x7=rgb stripes),DPAT:mode(0x8=black/medium grey lines, 0xA=red,0xB=green,0xC=blue),DPAT: ,dpat      (0-0x2f,0-255)                                    pattern(mode),OK
