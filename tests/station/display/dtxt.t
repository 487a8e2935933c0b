#: Writes a text on the active screen, over what is there.
#: dtxt=X,Y,RED,GREEN,BLUE,"TEXT" | X and Y in pixels, the upper left corner of the first character; colours 0 to 255.
#:   Characters are 48 by 48 pixels on this panel; those that begin right of the screen are left out. Answers with one
#:   blank; a place outside the screen, a missing text or no started screen (`lcdl`) is `ERROR`

text is drawn in its colour over what is there
  send     lcdl=1,0 -> LCDL: ,OK
  send     dclr=0,0,0,64 -> DCLR: ,OK
  #:
  send     dtxt=96,48,255,128,0,"II" -> DTXT: ,OK
  # an I has bars over columns 3 to 12 in rows 1, 2, 11 and 12 and a stem in columns 7 and 8, three pixels each
  phone    pixel 105 51 -> FF8000 | pixel 134 56 -> FF8000 | pixel 104 51 -> 000040
  phone    pixel 135 51 -> 000040 | pixel 105 50 -> 000040 | pixel 117 70 -> FF8000
  phone    pixel 122 70 -> FF8000 | pixel 123 70 -> 000040
  # the second one is 48 to the right
  phone    pixel 153 51 -> FF8000

what begins right of the screen or ends below it is left out
  send     lcdl=1,0 -> LCDL: ,OK
  send     dtxt=1056,0,255,255,255,"##" -> DTXT: ,OK
  # a # has its upper bar in rows 4 and 5 from column 2 on
  phone    pixel 1062 12 -> FFFFFF | pixel 1079 12 -> FFFFFF
  send     dtxt=0,1872,255,255,255,"#" -> DTXT: ,OK
  phone    pixel 6 1884 -> 000000
  send     dtxt=0,1871,255,255,255,"#" -> DTXT: ,OK
  phone    pixel 6 1883 -> FFFFFF

a place outside the screen and a missing text are errors
  send     lcdl=1,0 -> LCDL: ,OK
  send     dtxt=1080,0,255,255,255,"#" | dtxt=0,1920,255,255,255,"#" -> DTXT: ,ERROR
  send     dtxt=0,0,255,255,255 | dtxt=0,0,255,255,255, | dtxt -> DTXT: ,ERROR
  send     dtxt=0,0,255,255,255,"" -> DTXT: ,OK

without a screen nothing is printed, and the accepted values
  send     dtxt=0,0,255,255,255,"#" -> DTXT: ,ERROR
  send     dtxt=? -> DTXT: ,dtxt      (0-240),(0-320),(0-255),(0-255),(0-255),(a-z,A-Z) text(x,y,r,g,b,str),OK
