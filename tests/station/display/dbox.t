#: Draws a filled box on the active screen.
#: dbox=X,Y,WIDTH,HEIGHT,A,RED,GREEN,BLUE | place and size in pixels from the upper left corner; of each colour 8 bits
#:   count; A isn't used. Values that are left out at the end count as 0. Answers with one blank; `ERROR` when no
#:   screen is started (`lcdl`)

a box has its colour from corner to corner and nowhere else
  send     lcdl=1,0 -> LCDL: ,OK
  #:
  send     dbox=100,200,30,40,0,255,0,128 -> DBOX: ,OK
  phone    pixel 100 200 -> FF0080 | pixel 129 239 -> FF0080 | pixel 99 200 -> 000000
  phone    pixel 130 239 -> 000000 | pixel 129 240 -> 000000

without values the border of a box of no size runs around the screen
  send     lcdl=1 -> LCDL: ,OK
  send     dbox -> DBOX: ,OK
  phone    pixel 0 500 -> 000000 | pixel 1079 500 -> 000000 | pixel 500 500 -> FFFFFF

without a screen nothing is drawn, and the help
  send     dbox=0,0,10,10,0,255,255,255 -> DBOX: ,ERROR
  send     dbox=? -> DBOX: ,dbox      (...)                                             box(x,y,w,h,a,r,g,b),OK
