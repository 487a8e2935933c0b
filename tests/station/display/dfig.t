#: Draws a line, a filled box or a filled ellipse on the active screen.
#: dfig=0,X0,Y0,X1,Y1,WIDTH,A,RED,GREEN,BLUE | a line from one corner of the screen to the other unless told
#:   otherwise, 1 pixel wide. WIDTH is the thickness of a horizontal or vertical line; a diagonal one is always 1 wide
#: dfig=1,X,Y,WIDTH,HEIGHT,A,RED,GREEN,BLUE | a box, cut at the screen's edge; without values the whole screen
#: dfig=2,X,Y,WIDTH,HEIGHT,A,RED,GREEN,BLUE | the ellipse that the same box would enclose; it isn't cut
#: Places and sizes are pixels, colours 0 to 255 and black unless given; A isn't used; values at the end can be left
#: out. Answers with one blank. A place outside the screen, or a WIDTH or HEIGHT of 0, is `SYNTAX`; another figure, or
#: no started screen (`lcdl`), `ERROR`.

a horizontal line of thickness 4 is four rows, a vertical one grows to the right, a diagonal is drawn once
  send     lcdl=1,0 -> LCDL: ,OK
  #:
  send     dfig=0,0,100,1079,100,4,0,255,255,255 -> DFIG: ,OK
  phone    pixel 0 100 -> FFFFFF | pixel 1079 103 -> FFFFFF | pixel 0 99 -> 000000
  phone    pixel 0 104 -> 000000
  send     dfig=0,1070,5,1070,50,0xFFFFFFFF,0,0,255,0 -> DFIG: ,OK
  phone    pixel 1069 5 -> 000000 | pixel 1070 5 -> 00FF00 | pixel 1079 50 -> 00FF00
  phone    pixel 1079 51 -> 000000 | pixel 0 5 -> 000000
  send     dfig=0,0,0,100,100,4,0,255,0,0 -> DFIG: ,OK
  phone    pixel 50 50 -> FF0000 | pixel 50 51 -> 000000 | pixel 51 50 -> 000000

a line without an end goes to the bottom right corner, in black
  send     lcdl=1 -> LCDL: ,OK
  send     dfig=0,10,20 -> DFIG: ,OK
  phone    pixel 10 20 -> 000000 | pixel 1079 1919 -> 000000 | pixel 500 1000 -> FFFFFF

a line with an end outside the screen isn't drawn
  send     lcdl=1,0 -> LCDL: ,OK
  send     dfig=0,0,0,1080,0,1,0,255,255,255 | dfig=0,-1,0,5,5,1,0,255,255,255 -> DFIG: ,SYNTAX
  phone    pixel 0 0 -> 000000

a box is cut at the edge
  send     lcdl=1,0 -> LCDL: ,OK
  send     dfig=1,1000,0,500,10,0,1,2,3 -> DFIG: ,OK
  phone    pixel 1079 9 -> 010203 | pixel 999 9 -> 000000 | pixel 1000 10 -> 000000
  send     dfig=1,1080,0 | dfig=1,0,0,0,5 -> DFIG: ,SYNTAX

an ellipse fills its box, and there is no figure beyond it
  send     lcdl=1,0 -> LCDL: ,OK
  send     dfig=2,100,100,200,100,0,255,255,0 -> DFIG: ,OK
  # centre (200, 150) of the call, one less of the sum: 199, 149, radii 100 and 50; at x = 199 rows 100 to 198
  phone    pixel 199 149 -> FFFF00 | pixel 100 149 -> FFFF00 | pixel 199 199 -> 000000
  phone    pixel 110 110 -> 000000
  send     dfig=2,0,0,0,5 -> DFIG: ,SYNTAX
  send     dfig=3,0,0,5,5 -> DFIG: ,ERROR

without a screen every figure is an error, whatever its coordinates, and the help
  send     dfig=0,0,0,5,5 | dfig=1,0,0,0,0 -> DFIG: ,ERROR
  send     dfig=? -> DFIG: ,dfig      (...)                                             figure(act,x0,y0,x1,y1,w,a,r,g,b,OK
