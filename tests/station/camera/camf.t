#: Measures the contrast of the picture in memory in a window.
#: camf=KIND[,X,Y,W,H] | the means of the rows' brightest and darkest samples and the measure: for KIND 5 the darkest in
#:   percent of the brightest, for 6 the contrast in per mille. Width or height 0, or no window: 64 x 24 in the middle
#: `ERROR` with no answer: no picture, a window that leaves it, nothing but black.

contrast of a dark and a bright half, in the window in the middle and in one that is given
  phone    scene 1 flat 50 | scene 1 box 320 0 320 480 150
  send     caml=1 -> CAML:,OK
  send     camf=5 -> ERROR
  send     cams=1,0 -> CAMS:,OK
  # 50 / 150 is 33 percent; (150 - 50) / 200 is 500 per mille
  #:
  send     camf=5 -> CAMF:150,50,33,OK
  #:
  send     camf=6 -> CAMF:150,50,500,OK
  send     camf=6,0,0,320,480 -> CAMF:50,50,0,OK
  send     camf=5,10,10,0,24 -> CAMF:150,50,33,OK
  send     camf=6,319,479,2,1 -> CAMF:150,50,500,OK
  send     camf=6,319,479,2,2 | camf=6,639,0,2,1 | camf=6,0xFFFFFFFF,0,2,1 -> ERROR

the window in the middle of 64 x 24, and black
  phone    scene 1 flat 0 | scene 1 box 288 228 64 24 100
  send     caml=1 -> CAML:,OK
  send     cams=1,0 -> CAMS:,OK
  send     camf=5 -> CAMF:100,100,100,OK
  send     camf=5,287,228,64,24 -> CAMF:100,0,0,OK
  send     camf=5,288,227,64,24 -> CAMF:95,95,100,OK
  send     camf=5,0,0,10,10 -> ERROR
  send     camf=7 | camf=5,1 | camf -> SYNTAX
