#: Takes, gives back, saves, loads and describes the picture in memory.
#: cams | the sizes that the loaded camera has: id, width, height, format; `ERROR` before any `caml`
#: cams=1[,SIZE] | takes a snapshot of size SIZE, an id in decimal, or in hexadecimal with an x (0 unless given), in
#:   place of the picture in memory; cams=2[,SIZE] with the flash on
#: cams=0 | turns the flash off, gives the picture back and lets the viewfinder go on
#: cams=4,FILE | writes the picture's bytes to a file of the phone, in place of one of that name
#: cams=6,FILE | loads a file as picture, not on top of another. Its size isn't told by it: see `cams=5`
#: cams=5 | width, height and format of the picture
#: cams=5,W,H,FORMAT | says what they are, 0 to 65535 each way; format 0 is YUV, 2 JPEG
#: Answers with the bare name, behind what is told. `ERROR` when the camera or the file doesn't do it, or there is no
#: picture; another number is `SYNTAX` behind the bare name.

the sizes of a camera
  send     cams -> CAMS:,ERROR
  send     caml=1 -> CAML:,OK
  send     cams -> CAMS:\n\rConfig\tWidth\tHeight\tFormat\n\r0,\t640,\t480\tYUV\n\r1,\t1920,\t1080\tYUV\n\r2,\t1280,\t720\tYUV
  +        \n\r4,\t1600,\t1200\tYUV\n\r99,\t800,\t480\tYUV\n\r105,\t1944,\t1720\tJPEG\n\r199,\t1944,\t1720\tJPEG\n\r,OK

a snapshot of each size is taken, decimal or hexadecimal, and given back
  send     caml=1 -> CAML:,OK
  #:
  send     cams=1,1 -> CAMS:,OK
  send     cams=5 -> CAMS:1920,1080,0,CAMS:,OK
  send     cams=1,0x63 -> CAMS:,OK
  send     cams=5 -> CAMS:800,480,0,CAMS:,OK
  send     cams=1,99 -> CAMS:,OK
  phone    camera 1 -> open frames 0 held 0 heaps 2
  send     cams=1,0xC7 -> CAMS:,OK
  send     cams=5 -> CAMS:1944,1720,2,CAMS:,OK
  # An unknown size takes no picture, and keeps the one that is there
  send     cams=1,3 -> CAMS:,ERROR
  send     cams=5 -> CAMS:1944,1720,2,CAMS:,OK
  #:
  send     cams=0 -> CAMS:,OK
  phone    camera 1 -> open frames 0 held 0 heaps 0
  send     cams=0 -> CAMS:,OK

the thumbnail stays on the panel until the picture is given back
  phone    scene 1 flat 235
  send     lcdl=1 -> LCDL: ,OK
  send     caml=1 -> CAML:,OK
  send     camv=1,0 -> CAMV:,OK
  send     cams=1,2 -> CAMS:,OK
  phone    clock hold
  # 720 x 1280 at (180, 320)
  phone    pixel 180 320 -> FFFFFF | pixel 179 320 -> 000000
  phone    scene 1 flat 16 | clock +100 | pixel 180 320 -> FFFFFF
  phone    clock run
  send     cams=0 -> CAMS:,OK
  phone    clock hold | clock +100
  # The viewfinder's own size again: 480 x 640
  phone    pixel 180 320 -> 000000 | pixel 540 960 -> 000000

a picture with the flash sets it once and gives it back
  send     caml=1 -> CAML:,OK
  send     cams=2,0 -> CAMS:,OK
  phone    camera 1 param 13 -> 01000000 | camera 1 param 14 -> 00000000
  phone    camera 1 param 13 07
  send     cams=2,0 -> CAMS:,OK
  phone    camera 1 param 13 -> 07000000
  send     cams=0 -> CAMS:,OK
  phone    camera 1 param 13 -> 00000000

a picture is saved, and loaded byte for byte
  phone    scene 1 flat 65 66 67 | scene 1 box 0 0 1 1 97
  send     caml=1 -> CAML:,OK
  send     cams=1,0 -> CAMS:,OK
  write    /data/p.yuv old
  #:
  send     cams=4,"/data/p.yuv" -> CAMS:,OK
  file     /data/p.yuv -> a\*307199{A}\*76800{CB}
  send     cams=6,"/data/p.yuv" -> CAMS:,ERROR
  send     cams=0 -> CAMS:,OK
  send     caii -> ERROR
  send     cams=6,/data/p.yuv -> CAMS:,OK
  send     caii -> CAII: 0x41,OK
  send     cams=0 -> CAMS:,OK
  # With no picture the old file is gone all the same
  send     cams=4,/data/p.yuv | cams=6,/data/p.yuv -> CAMS:,ERROR

a loaded file is described, and judged as far as its bytes reach
  write    /data/small.yuv \*64{dddd}\*64{BC}
  send     caml=1 -> CAML:,OK
  send     cams=6,/data/small.yuv | cams=5,16,16,0 -> CAMS:,OK
  send     cams=5 -> CAMS:16,16,0,CAMS:,OK
  send     caii -> CAII: 0x64,OK
  send     cams=5,32,16,0 -> CAMS:,OK
  send     caii -> ERROR
  send     camg -> CAMG:,ERROR
  send     cams=5,16,16,1 -> CAMS:,OK
  send     caii -> ERROR
  # A loaded picture stays over the end of the camera, but has no layout then
  send     cams=5,16,16,0 -> CAMS:,OK
  send     caml=0 -> CAML:,OK
  send     caii -> ERROR
  send     caml=2 -> CAML:,OK
  send     caii -> CAII: 0x64,OK

files that are empty, missing, a folder or too large
  write    /data/empty
  send     cams=6,/data/empty -> CAMS:,OK
  send     caml=1 -> CAML:,OK
  send     camb=8 -> ERROR
  send     cams=0 -> CAMS:,OK
  send     cams=6,/data/nothing | cams=6,/data | cams=6, | cams=4,/data -> CAMS:,ERROR

what belongs to a viewfinder goes with it, and what doesn't stays
  phone    speed 20
  send     caml=1 -> CAML:,OK
  send     cams=1,0 -> CAMS:,OK
  send     caml=0 -> CAML:,OK
  phone    camera 1 -> closed frames 0 held 0 heaps 2
  send     caml=1 -> CAML:,OK
  send     camf=5 -> CAMF:210,30,14,OK
  phone    clock hold
  send     camv=1,0 | camv=0 -> CAMV:,OK
  send     camf=5 -> ERROR
  phone    camera 1 -> open frames 0 held 0 heaps 0

a picture that never comes is an error after five seconds, and the next one comes
  phone    speed 100
  send     caml=1 -> CAML:,OK
  phone    fail drns_callback 0x4 1
  send     cams=1,0 -> CAMS:,ERROR
  phone    camera 1 -> open frames 0 held 0 heaps 0
  send     cams=1,0 -> CAMS:,OK
  # One that comes too late belongs to nobody
  phone    fail drns_callback 0x3 1 slow 6000
  send     cams=1,0 -> CAMS:,ERROR
  send     cams=1,0 -> CAMS:,OK

wrong numbers and texts
  send     cams=3 | cams=7 -> CAMS:,SYNTAX
  send     cams=4 | cams=6 | cams=5,1,2 | cams=5,65536,2,0 -> SYNTAX
  send     cams=5,65535,2,-1 -> CAMS:,OK
  send     cams=5 -> CAMS:65535,2,-1,CAMS:,OK
  send     cams=1,0 -> CAMS:,ERROR
  send     cams?1 -> OK
