#: Draws a picture from a file of the phone in the upper left corner of the active screen.
#: dimg="PATH" | a BMP file of 24 bits a pixel, without compression. Answers with one blank; `ERROR` when the file
#:   can't be read or is no such picture, and when no screen is started (`lcdl`)
# A picture of 2 by 2 pixels: red and green above, blue and 123456 below.

a picture is drawn in the top left corner, and the rest stays; without a screen it isn't drawn
  write    /data/a.bmp BMF\0\0\0\0\0\0\06\0\0\0(\0\0\0\x02\0\0\0\x02\0\0\0\x01\0\x18\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xff\0\0V4\x12\0\0\0\0\xff\0\xff\0\0\0
  send     dimg="/data/a.bmp" -> DIMG: ,ERROR
  send     lcdl=1 -> LCDL: ,OK
  #:
  send     dimg="/data/a.bmp" -> DIMG: ,OK
  phone    pixel 0 0 -> FF0000 | pixel 1 0 -> 00FF00 | pixel 0 1 -> 0000FF | pixel 1 1 -> 123456
  phone    pixel 2 0 -> 000000 | pixel 0 500 -> FFFFFF

a file that can't be read, one that is no picture, a missing one, a folder, no path and one without quotes
  write    /data/a.bmp BMF\0\0\0\0\0\0\06\0\0\0(\0\0\0\x02\0\0\0\x02\0\0\0\x01\0\x18\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xff\0\0V4\x12\0\0\0\0\xff\0\xff\0\0\0
  write    /data/text.bmp Bonjour
  send     lcdl=1,0 -> LCDL: ,OK
  phone    fail read /data/a.bmp
  send     dimg="/data/a.bmp" -> DIMG: ,ERROR
  phone    pixel 0 0 -> 000000
  send     dimg="/data/text.bmp" | dimg="/data/nosuch.bmp" | dimg="/sys" | dimg -> DIMG: ,ERROR
  send     dimg=/data/a.bmp -> dimg      a...z                                             image(file),SYNTAX

the accepted values
  send     dimg=? -> DIMG:Load and display image file,dimg      a...z                                             image(file),OK
