#: Shows a test pattern on the active screen.
#: dpat[=PATTERN] | 0 when left out: the test picture. Answers with one blank; `ERROR` when no screen is started
#:   (`lcdl`)
#: dpat=14,LEVEL | all grey of that level, 0 to 255; a second value with any other pattern is `SYNTAX` with no line
#: Plain: 3 white, 4 black, 6 medium grey, 10 red, 11 green, 12 blue, 5 black with a white border. Chess: 1 and 20, 2
#: and 21 with cells of 1 pixel, 22 and 23 of 2, 18 and 19 of 16. Lines: 24 to 27 horizontal, 28, 29 and 45 vertical,
#: 44 for uniformity. Bars and boxes: 7 red, green and blue, 30 and 31 a box in the middle, 49 two halves, 16 and 17
#: crosstalk. Ramps: 8 green, 32 to 35 horizontal (white, red, green, blue), 36 to 39 vertical, 40 to 43 diagonal, 48
#: the colour cube. Fixed layouts for other panels: 15, 46, 47. Other numbers draw nothing and are `OK`.
# Patterns on the panel of 1080 by 1920. The unit tests hold every pattern to its rule; here is what a station sees.

chess and bars
  send     lcdl=1,0 -> LCDL: ,OK
  #:
  send     dpat=1 -> DPAT: ,OK
  phone    pixel 1 0 -> FFFFFF | pixel 1 1 -> 000000 | pixel 1079 1919 -> 000000
  send     dpat=7 -> DPAT: ,OK
  phone    pixel 359 0 -> FF0000 | pixel 360 0 -> 00FF00 | pixel 720 0 -> 0000FF

the test picture of pattern 0, green ramps and a grey level
  # blocks of 135 by 240: (1080 + 1) / 8 = 135, (1920 + 2) / 8 = 240
  send     lcdl=1,0 -> LCDL: ,OK
  send     dpat -> DPAT: ,OK
  phone    pixel 134 0 -> 000000 | pixel 135 0 -> 111111 | pixel 1079 239 -> 777777
  phone    pixel 270 480 -> 00FF00 | pixel 2 960 -> 000000 | pixel 9 1440 -> FFFFFF
  phone    pixel 9 1560 -> 000000 | pixel 10 1560 -> FFFFFF | pixel 0 1919 -> 7F7F7F
  send     dpat=8 -> DPAT: ,OK
  # 1079 * 256 / 1080 = 255; (1080 - 0) * 256 / 1080 = 256, which is bit 16 when shifted by 8
  phone    pixel 1079 959 -> 00FF00 | pixel 0 960 -> 010000 | pixel 1 960 -> 00FF00
  #:
  send     dpat=14,128 -> DPAT: ,OK
  phone    pixel 9 9 -> 808080
  send     dpat=14 -> DPAT: ,OK
  phone    pixel 9 9 -> 000000
  send     dpat=3,128 -> SYNTAX

a screen of one pixel takes the start screen and a pattern
  conf     panel 1x1x32 1
  send     lcdl=1 -> LCDL: ,OK
  send     dpat=3 -> DPAT: ,OK
  phone    pixel 0 0 -> FFFFFF

a number without a pattern changes nothing and is fine
  send     lcdl=1 -> LCDL: ,OK
  send     dpat=9 | dpat=-1 -> DPAT: ,OK
  phone    pixel 0 500 -> FFFFFF

without a screen there is no pattern, and the help
  send     dpat=3 -> DPAT: ,ERROR
  send     dpat=?
  expect   DPAT:mode(0x0=tv,0x1=chess,0x2=invers chess,0x3=white,0x4=black),DPAT:mode(0x5=black on grey,0x6=medium grey,0x7=rgb stripes),DPAT:mode(0x8=black/medium grey lines, 0xA=red,0xB=green,0xC=blue),DPAT: ,dpat      (0-0x2f,0-255)                                    pattern(mode),OK
