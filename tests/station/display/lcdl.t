#: Starts a screen, which makes it the active one that all drawing goes to.
#: lcdl=SCREEN | 1 the phone's panel, which shows the start screen; 3 the HDMI output, which stays black. Answers with
#:   one blank; another number is `ERROR`
#: lcdl=SCREEN,DRAW | the same, with (1) or without (0) the start screen

the main panel starts with the start screen
  phone    pixel 0 500 -> 000000
  #:
  send     lcdl=1 -> LCDL: ,OK
  # grey ramp in the first tenth: row 96 is 96 * 2560 / 1920 = 128
  phone    pixel 1079 96 -> 808080
  # six bands from row 34 / 40 on: red falling, at x = 540 255 - 540 * 255 / 1080 = 128
  phone    pixel 0 1632 -> FF0000 | pixel 540 1632 -> 800000 | pixel 1079 1919 -> 0000FE
  # text of 48 pixels a character from x = 144 on: the second stem of the B of "Brenk1 board", at h * 18 / 40
  phone    pixel 150 890 -> 000000 | pixel 143 890 -> FFFFFF
  # "Welcome to HVT:" in light grey at h * 32 / 40: the left stem of the W, font column 1
  phone    pixel 4 1540 -> CFCFCF | screen -> 1080x1920x32 page 0 unblanked mode 0

the HDMI output starts without the start screen unless that is asked for, and the panel is selected again
  send     lcdl=1,0 | lcdl=3 -> LCDL: ,OK
  phone    pixel 0 500 2 -> 000000
  send     lcdl=3,1 -> LCDL: ,OK
  phone    pixel 0 500 2 -> FFFFFF
  send     dclr=0,1,2,3 -> DCLR: ,OK
  phone    pixel 5 5 2 -> 010203
  # the panel wasn't touched
  phone    pixel 0 500 -> 000000
  send     lcdl=1,0 -> LCDL: ,OK
  send     dclr=0,4,5,6 -> DCLR: ,OK
  phone    pixel 5 5 -> 040506 | pixel 5 5 2 -> 010203

a number without a screen is an error, and the help
  send     lcdl | lcdl=2 | lcdl=4 -> LCDL: ,ERROR
  send     lcdl=? -> LCDL: ,lcdl      (0-2)[,(0-1)]                                     load(mode),OK

a phone without the HDMI framebuffer keeps drawing on the panel
  conf     without /dev/graphics/fb1
  send     lcdl=1,0 -> LCDL: ,OK
  send     lcdl=3 -> LCDL: ,ERROR
  send     dclr=0,9,9,9 -> DCLR: ,OK
  phone    pixel 0 0 -> 090909

a panel with one page of memory and 16 bits shows the same screen
  conf     panel 720x1280x16 1
  send     lcdl=1 -> LCDL: ,OK
  phone    pixel 0 600 -> FFFFFF
  # row 64 of the ramp is 128: 5 bits keep 16 of 31, 6 bits 32 of 63
  phone    pixel 0 64 -> 838183 | screen -> 720x1280x16 page 0 unblanked mode 0

a console in front of the panel is put into graphics mode; one that can't be opened keeps the panel off, one that refuses doesn't
  conf     with /dev/tty0
  phone    fail open /dev/tty0
  send     lcdl=1,0 -> LCDL: ,ERROR
  phone    fail ioctl /dev/tty0
  send     lcdl=1,0 -> LCDL: ,OK
  phone    fail off -> 0 faults were never reached

a product whose framebuffer is another driver's
  conf     setting screenconf main_fb_id otherfb
  send     lcdl=1 -> LCDL: ,ERROR
