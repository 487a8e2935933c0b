#: Looks for dark marks in the picture of an even field.
#: camb=8 | six numbers in hexadecimal: shadows, dark pixels, column and row of the darkest shadow, column and row of the
#:   block of the darkest pixel
#: camb=8,INNER,FOCUSED,BLOCK,OUTER,EDGE,CORNER,ROWSTEP,COLSTEP,LENGTH,GAP,OUTERCOLS,OUTERROWS | the same with other limits.
#:   The thresholds INNER, FOCUSED (single pixels; 0 looks for none), OUTER, EDGE and CORNER (0: not looked at) are per
#:   mille of darkness; BLOCK is the edge of a cell in pixels, which is sampled in steps of ROWSTEP and COLSTEP; LENGTH cells
#:   are compared behind a gap of GAP cells; OUTERCOLS and OUTERROWS are the outer bands in cells.
#:   30,100,5,30,30,170,2,2,4,4,0,0 unless given
#: `ERROR` with no answer: no picture, or limits that the picture's size doesn't allow. Other test types and counts are
#: answered by "not implemented".

an even field has no marks; specks and shadows are counted, and the darkest are told
  send     caml=2 -> CAML:,OK
  send     camb=8 -> ERROR
  send     cams=1,0 -> CAMS:,OK
  send     camb=8 -> CAMB:0x00,0x00,0x00,0x00,0x00,0x00,OK
  # Two pixels of 10 and 40 percent below 118, in blocks (20, 40) and (61, 33), where no sample falls
  phone    scene 2 box 101 201 1 1 106; 306 166 1 1 71
  send     cams=1,0 -> CAMS:,OK
  #: Two specks, the darker one at column 305 (0x131), row 165 (0xA5):
  send     camb=8 -> CAMB:0x00,0x02,0x00,0x00,0x131,0xA5,OK
  # A limit of 102 per mille: 1 - 106 / 118 is 101.7
  send     camb=8,30,102,5,30,30,170,2,2,4,4,0,0 -> CAMB:0x00,0x01,0x00,0x00,0x131,0xA5,OK
  send     camb=8,30,0,5,30,30,170,2,2,4,4,0,0 -> CAMB:0x00,0x00,0x00,0x00,0x00,0x00,OK

a shadow is one spot, at its middle
  phone    scene 2 shade 402 302 30 100
  send     caml=2 -> CAML:,OK
  send     cams=1,0 -> CAMS:,OK
  send     camb=8 -> CAMB:0x01,0x00,0x190,0x12C,0x00,0x00,OK
  send     camb=8,130,100,5,30,30,170,2,2,4,4,0,0 -> CAMB:0x00,0x00,0x00,0x00,0x00,0x00,OK

limits that the picture's size doesn't allow
  send     caml=2 -> CAML:,OK
  send     cams=1,0 -> CAMS:,OK
  send     camb=8,30,100,0,30,30,170,2,2,4,4,0,0 | camb=8,30,100,5,30,30,170,0,2,4,4,0,0 -> ERROR
  send     camb=8,30,100,5,30,30,170,2,0,4,4,0,0 | camb=8,30,100,5,30,30,170,2,2,0,0,0,0 -> ERROR
  send     camb=8,30,100,5,30,30,170,2,2,0xFFFFFFFF,2,0,0 -> ERROR
  # 96 rows of cells: a reach of 47 is the last that fits
  send     camb=8,30,100,5,30,30,170,2,2,40,7,0,0 -> CAMB:0x00,0x00,0x00,0x00,0x00,0x00,OK
  send     camb=8,30,100,5,30,30,170,2,2,40,8,0,0 -> ERROR

what isn't implemented
  send     camb=7 -> CAMB:Old test type, not implemented!,ERROR
  send     camb=8,1,2,3 -> CAMB: Not implemented!,ERROR
  send     camb=7,1,2,3 -> CAMB: Not implemented!,CAMB:Old test type, not implemented!,ERROR
  send     camb=8,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15 -> CAMB: Not implemented!,ERROR
  send     camb?8,1,2,3 -> CAMB: Not implemented!,OK
  send     camb=8,1 | camb -> SYNTAX
