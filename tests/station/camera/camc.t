#: Checks the data lines from the sensor with test patterns.
#: camc[=0[,LIMIT]] | in hexadecimal: the lines that are shorted to a neighbour, the lines that never move, a bit each; looks
#:   at LIMIT samples of a frame of the counting pattern (640)
#: camc=1[,LIMIT] | the mismatches of a pseudo-random sequence; always `ERROR` on this phone, which has no such picture
#: camc=2[,LIMIT] | the samples, when all have the free pattern, else 0
#: Takes its own picture; pattern and viewfinder are off behind it. `ERROR` with no answer when that fails.

good lines, a line that is stuck, lines that are shorted
  phone    speed 50
  send     caml=1 -> CAML:,OK
  #:
  send     camc=0 -> CAMC:0x00,0x00,OK
  phone    camera 1 param 40 -> 00000000
  phone    camera 1 data stuck 6 1
  send     camc -> CAMC:0x00,0x40,OK
  phone    camera 1 data stuck 0 0
  send     camc -> CAMC:0x00,0x01,OK
  # Bit 5 reads bit 6: lines 1 and 2 never differ. What is told is 0xC0 moved by the first of the pair.
  phone    camera 1 data short 6 5
  send     camc -> CAMC:0x60,0x00,OK
  phone    camera 1 data good
  # Two samples, 0 and 1: only bit 0 moves, and differs from the others once
  send     camc=0,2 -> CAMC:0xFE,0xFE,OK

it leaves pattern and viewfinder off, also when no frame comes
  phone    speed 100
  send     caml=1 -> CAML:,OK
  phone    fail drns_callback 0x1 all
  send     camc=0 -> ERROR
  phone    fail off | camera 1 param 40 -> 00000000 | camera 1 -> open frames 0 held 0 heaps 0
  phone    fail drns_start_preview 0x0 1
  send     camc=0 -> ERROR
  phone    camera 1 param 40 -> 00000000

the two other kinds
  phone    speed 50 | scene 1 flat 170
  send     caml=1 -> CAML:,OK
  send     camc=1 -> ERROR
  # 640 x 480 samples are 0x4B000
  send     camc=2 -> CAMC:0x4B000,OK
  send     camc=2,100 -> CAMC:0x64,OK
  phone    scene 1 flat 171
  send     camc=2 -> CAMC:0x00,OK
  send     camc=3 -> SYNTAX
  send     camc=3,1 -> ERROR
  send     camc=0,1,2 -> SYNTAX
