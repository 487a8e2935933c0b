#: Starts or stops the viewfinder on the active screen.
#: camv=1[,SIZE[,TURN]] | starts it with pictures of size SIZE, an id of those that `cams` lists (its low 8 bits; 0
#:   unless given, the last one when there is no such id), turned by TURN quarter turns, 0 to 3, beside how the camera
#:   is mounted. A viewfinder that runs keeps its size
#: camv=0 | stops it; a snapshot that was taken since is gone
#: Answers with the bare name; `ERROR` without an active camera, when the camera refuses, or when none was started.

the main camera's pictures are turned by a quarter and stand in the middle of the panel
  phone    scene 1 flat 50 | scene 1 box 0 0 100 100 200 90 240
  send     lcdl=1 -> LCDL: ,OK
  send     caml=1 -> CAML:,OK
  phone    clock hold
  #: The viewfinder shows pictures of 640 x 480:
  send     camv=1,0 -> CAMV:,OK
  phone    camera 1 -> preview 640x480 frames 0 held 0 heaps 1 | pixel 540 960 -> 000000
  phone    clock +40 | camera 1 -> preview 640x480 frames 1 held 0 heaps 2
  # 480 x 640 at (300, 640); what is top left in the picture is top right on the panel. Brightness 50 is
  # (50 - 16) * 255 / 219 = 40; 200, 90, 240 is 214 + 1.402 * 127.5, 214.2 + 0.344 * 43.3 - 0.714 * 127.5, 214.2 - 1.772 * 43.3
  phone    pixel 779 640 -> FF8A8A | pixel 680 739 -> FF8A8A | pixel 679 739 -> 282828
  phone    pixel 680 740 -> 282828 | pixel 300 1279 -> 282828 | pixel 299 960 -> 000000
  phone    pixel 540 1280 -> 000000
  #:
  send     camv=0 -> CAMV:,OK
  phone    pixel 540 960 -> 000000 | camera 1 -> open frames 1 held 0 heaps 1
  send     caml=0 -> CAML:,OK
  phone    camera 1 -> closed frames 1 held 0 heaps 0

the sub camera's are mirrored as well, and turned further when asked
  phone    scene 2 box 0 0 100 100 235
  send     lcdl=1 -> LCDL: ,OK
  send     caml=2 -> CAML:,OK
  send     camv=1,0 -> CAMV:,OK
  phone    clock hold | clock +100
  # Mirrored, then turned: top left comes to be at the bottom right. Colours are those of the scene, 121 and 133.
  phone    pixel 779 1279 -> FFFEF1 | pixel 680 1180 -> FFFEF1
  # One turn more, with both values odd only for an odd turn: code 3 + 2, a picture upside down
  send     camv=1,0,1 -> CAMV:,OK
  phone    clock +40
  # 640 x 480 at (220, 720)
  phone    pixel 220 1199 -> FFFEF1 | pixel 219 1199 -> 000000 | pixel 319 1100 -> FFFEF1

a picture larger than the panel is made to fit
  phone    scene 1 flat 16 | scene 1 box 0 0 1600 600 235
  send     lcdl=1 -> LCDL: ,OK
  send     caml=1 -> CAML:,OK
  send     camv=1,4 -> CAMV:,OK
  phone    clock hold | clock +100
  # 1200 x 1600 becomes 1080 x 1440 at (0, 240); the upper half is right
  phone    pixel 540 239 -> 000000 | pixel 540 240 -> FFFFFF | pixel 1079 1679 -> FFFFFF
  phone    pixel 539 960 -> 000000 | pixel 540 1680 -> 000000

a second start keeps memory and size
  phone    speed 20
  send     caml=1 -> CAML:,OK
  send     camv=1,0 -> CAMV:,OK
  phone    clock hold
  send     camv=1,2 -> CAMV:,OK
  phone    calls on | clock +40 | camera 1 param 1 -> 8002E001
  send     camv=0 -> CAMV:,OK

without a screen the viewfinder runs all the same, and a frame that can't be shown is given back
  send     caml=2 -> CAML:,OK
  phone    clock hold
  send     camv=1,0 -> CAMV:,OK
  phone    clock +1000 | camera 2 -> preview 640x480 frames 30 held 0 heaps 1
  send     camv=0 -> CAMV:,OK

frames that aren't given back leave the viewfinder without buffers
  send     caml=2 -> CAML:,OK
  phone    clock hold
  send     camv=1,0 -> CAMV:,OK
  phone    fail drns_release_frame 0x0 all | clock +1000
  phone    camera 2 -> preview 640x480 frames 4 held 4 heaps 1
  phone    fail off
  send     camv=0 -> CAMV:,OK
  phone    camera 2 -> open frames 4 held 0 heaps 0

a viewfinder that won't stop can be stopped again
  send     caml=1 -> CAML:,OK
  send     camv=1,0 -> CAMV:,OK
  phone    fail drns_stop_preview 0x0 1
  send     camv=0 -> CAMV:,ERROR
  send     camv=0 -> CAMV:,OK
  send     camv=0 -> CAMV:,ERROR

a stop behind caml=0 is still answered
  send     caml=1 -> CAML:,OK
  send     camv=1,0 -> CAMV:,OK
  send     caml=0 -> CAML:,OK
  send     camv=0 -> CAMV:,OK
  send     camv=0 -> CAMV:,ERROR

the menu's page shows the viewfinder between its buttons and its answer, and closes the camera when it is left
  phone    scene 1 flat 16 | key 116 tap | clock +140 | idle | touch 250 1328 tap | clock +140
  phone    idle | touch 100 180 tap | clock +140 | idle | clock +200
  # The picture from 640 to 1279; white paper lies above and below it
  phone    pixel 540 640 -> 000000 | pixel 540 1279 -> 000000 | pixel 540 630 -> F1F4F8
  phone    pixel 540 1285 -> F1F4F8
  phone    touch 500 1850 tap | clock +140 | idle
  # "Sensors" and "Camera" again, and no memory left
  phone    pixel 540 960 -> FFFFFF | camera 2 -> closed frames 0 held 0 heaps 0

it needs a camera, one to three values and at most three turns
  send     camv=1,0 -> CAMV:,ERROR
  send     camv | camv=1,0,4 | camv=1,0,0x80000000 -> SYNTAX
  send     camv?1 -> OK
  send     camv=1,2,3,4 -> SYNTAX
