#: Fills the active screen with a colour.
#: dclr[=A[,RED[,GREEN[,BLUE]]]] | colours 0 to 255, 0 when left out; A isn't used. Answers with one blank; `ERROR`
#:   when no screen is started (`lcdl`)

the screen is filled with the colour
  send     lcdl=1,0 -> LCDL: ,OK
  #:
  send     dclr=255,18,0x34,86 -> DCLR: ,OK
  phone    pixel 0 0 -> 123456 | pixel 1079 1919 -> 123456

values left out are black, and only 8 bits of a value count
  send     lcdl=1,0 -> LCDL: ,OK
  send     dclr=0,0x1FF,-1 -> DCLR: ,OK
  phone    pixel 7 7 -> FFFF00
  send     dclr -> DCLR: ,OK
  phone    pixel 7 7 -> 000000

without a screen nothing can be cleared, and the accepted values
  send     dclr=0,1,2,3 -> DCLR: ,ERROR
  phone    pixel 0 0 -> 000000
  send     dclr=? -> DCLR: ,dclr      (0-0xff)[,(0-0xff)[,(0-0xff)[,(0-0xff)]]]         clear(alpha,r,g,b),OK

a panel that can't be panned is told
  send     lcdl=1,0 -> LCDL: ,OK
  phone    fail ioctl /dev/graphics/fb0
  send     dclr=0,1,2,3 -> DCLR: ,ERROR
