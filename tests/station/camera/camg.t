#: Judges a picture of the test chart, and sets the limits for that.
#: camg | five words in hexadecimal, 0 for a pass: edge, colour, flare, solarization, resolution. A part that failed has its
#:   bit: 0x100 and up for the corner, the patch (white, red, green, blue), the line or the block; beside it 0x10, or for
#:   colours 0x10 hue, 0x20 saturation, 0x40 value. Edge: 0x20 not straight, 0x40 not 4:3; when it fails the others are 1.
#:   Solarization: 5 away from the curve
#: camg=ID | a limit in hexadecimal
#: camg=ID,VALUE | sets it, until the program ends; all but 18 have 8 bits
#: Limits: 16 search area in percent, 17 least red, 18 run length; 32 and 33 white, 34 to 37 red, 38 to 41 green, 42 to 45 blue
#: (hue correction, tolerance, least saturation and value); 48, 49 flare levels; 64, 65 tolerance above and below the ramp;
#: 80 to 83 contrasts that must pass and least contrast, middle and corners. `ERROR` behind the bare name: no picture, not YUV,
#: an odd size, or no such limit.

the chart passes at every size
  send     caml=1 -> CAML:,OK
  send     cams=1,0 -> CAMS:,OK
  #:
  send     camg -> CAMG:0x0,0x0,0x0,0x0,0x0,OK
  send     cams=1,1 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x0,0x0,0x0,OK
  send     cams=1,2 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x0,0x0,0x0,OK
  send     cams=1,4 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x0,0x0,0x0,OK
  send     cams=1,99 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x0,0x0,0x0,OK
  send     cams=1,105 -> CAMS:,OK
  send     camg -> CAMG:,ERROR
  send     cams=5,1944,1720,0 -> CAMS:,OK
  send     camg? -> CAMG:0x0,0x0,0x0,0x0,0x0,OK

each part that is left blank gives its own bit
  phone    speed 20
  send     caml=1 -> CAML:,OK
  phone    scene 1 chart corner0
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x110,0x1,0x1,0x1,0x1,OK
  phone    scene 1 chart corner3
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x810,0x1,0x1,0x1,0x1,OK
  phone    scene 1 chart corner1 corner2
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x610,0x1,0x1,0x1,0x1,OK
  phone    scene 1 chart red
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x260,0x0,0x0,0x0,OK
  phone    scene 1 chart green
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x470,0x0,0x0,0x0,OK
  phone    scene 1 chart blue
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x870,0x0,0x0,0x0,OK
  phone    scene 1 chart flare0 flare3
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x910,0x0,0x0,OK
  phone    scene 1 chart flare1
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x210,0x0,0x0,OK
  phone    scene 1 chart flare2
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x410,0x0,0x0,OK
  phone    scene 1 chart lines0 lines4
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x0,0x0,0x1110,OK
  phone    scene 1 chart lines1
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x0,0x0,0x210,OK
  phone    scene 1 chart lines2 lines3
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x0,0x0,0xc10,OK
  phone    scene 1 chart jump
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0x0,0x0,0x0,0x5,0x0,OK

a grey picture has no corners
  send     caml=2 -> CAML:,OK
  send     cams=1,0 -> CAMS:,OK
  send     camg -> CAMG:0xf10,0x1,0x1,0x1,0x1,OK

limits are read and set, and outlast a test
  send     camg=16 -> CAMG:0x14,OK
  send     camg=16,0x12C -> CAMG:,OK
  send     camg=16 -> CAMG:0x2c,OK
  send     camg=18,0x12345678 -> CAMG:,OK
  send     camg=0x10012 -> CAMG:0x12345678,OK
  send     camg=15 | camg=19 | camg=96,1 -> CAMG:,ERROR
  send     camg=1,2,3 -> SYNTAX
  send     camg=? -> CAMG:Camera general test.,camg      [(0-255)[,(0-65535)]]                             test/set param/get param,OK
