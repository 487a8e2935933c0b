#: The mean of a channel of the picture in memory.
#: caii[=CHANNEL] | the mean in hexadecimal; CHANNEL 1 brightness (unless given), 2 and 3 the colours
#: caii=CHANNEL,LEVEL | how many samples are at least LEVEL, in hexadecimal
#: `ERROR`: no picture, or no such channel.

means and counts of a picture
  phone    scene 1 flat 100 | scene 1 box 0 0 10 10 200
  send     caml=1 -> CAML:,OK
  send     caii -> ERROR
  send     cams=1,0 -> CAMS:,OK
  # 100 + 100 * 100 / 307200 is 100, cut
  #:
  send     caii -> CAII: 0x64,OK
  #: A hundred samples reach 200:
  send     caii=1,200 -> CAII: 0x64,OK
  send     caii=1,201 -> CAII: 0x0,OK
  send     caii=1,100 -> CAII: 0x4B000,OK

the two colours are the two halves of what lies behind the brightness
  write    /data/c.yuv \*256{a}\*64{b}\*64{c}
  send     caml=1 -> CAML:,OK
  send     cams=6,/data/c.yuv | cams=5,16,16,0 -> CAMS:,OK
  send     caii=2 -> CAII: 0x62,OK
  send     caii=3 -> CAII: 0x63,OK
  send     caii=3,99 -> CAII: 0x40,OK
  send     caii=0 -> ERROR

channels that there aren't, and other forms
  send     caii=4 -> CAII: No valid channel,ERROR
  send     caii? -> ERROR
  send     caii=? -> caii                                                        ,OK
  send     caii=1,2,3 -> SYNTAX
