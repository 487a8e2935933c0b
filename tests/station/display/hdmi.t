#: Turns the HDMI output on and off, shows pictures and plays a tone on it, and asks the monitor.
#: hdmi=1 | turns the output on; all other functions want it on, and answer `HDMI is not turn on` and `ERROR` else
#: hdmi=0 | turns it off; a picture stays where it is
#: hdmi=2,PATTERN[,MODE] | shows a picture: PATTERN 1 ramps of red, green and blue, 2 a grey ramp, 3 white, 0 ends the
#:   picture. MODE 0 (when left out) 720 × 480, 1 1280 × 720, 2 1920 × 1080
#: hdmi=3,ON | a tone of 1 kHz: 1 on, 0 off
#: hdmi=4 | the monitor's six bytes of key selection, hexadecimal
#: hdmi=5[,ONCE] | `0x1` when a monitor is connected, `0x0` when none is. ONCE 0 asks a second time when one was found
#: hdmi=6 | `0x1` when the second block of what the monitor tells of itself (EDID) is whole, `0x0` otherwise
#: hdmi=6,BLOCK | the 128 bytes of block 0 or 1, hexadecimal; `ERROR` behind them when the second block isn't whole
#: hdmi=7,OPCODE | sends a CEC command, OPCODE 0 to 255: one more than the bytes sent, so 21 when all went out; 1 for
#:   opcode 54 (standby)
#: hdmi=8,LINE | drives the TMDS test line, 0 or 1
#: hdmi=9 | firmware download, which this phone doesn't have
#: Answers one blank where nothing else is said. A failure is `ERROR` behind a text that names it; that of `hdmi=8` is
#: the tone's.

off, on, on again, off
  send     hdmi=0 -> HDMI:HDMI is not turn on,ERROR
  #:
  send     hdmi=1 -> HDMI: ,OK
  file     /sys/class/graphics/fb1/hpd -> 1\n
  send     hdmi=1 -> HDMI:HDMI is already turn on,OK
  send     hdmi=0 -> HDMI: ,OK
  file     /sys/class/graphics/fb1/hpd -> 0\n
  send     hdmi=2,1,1 | hdmi=9 -> HDMI:HDMI is not turn on,ERROR

help, and values that are refused before the output is asked
  send     hdmi -> ERROR
  send     hdmi? -> HDMI:hdmi Test,OK
  send     hdmi=? -> HDMI:hdmi Test,hdmi      (0-9)[,(0-255)[,(B)]]                             hdmi(),OK
  send     hdmi=10 | hdmi=-1 | hdmi=2,1,1,1 | hdmi=5,0,0 | hdmi=6,2 | hdmi=6,0,0 -> HDMI: ,SYNTAX

colour ramps in the largest mode
  send     hdmi=1 -> HDMI: ,OK
  #: On a monitor of 1920 × 1080:
  send     hdmi=2,1,2 -> HDMI: ,OK
  phone    screen 2 -> 1920x1080x32 page 0 unblanked mode 34
  # 1920 / 256 = 7 columns a level, the last 128 levels (127 to 0) one more: 128 * 7 = 896
  phone    pixel 0 0 2 -> FF0000 | pixel 6 0 2 -> FF0000 | pixel 7 0 2 -> FE0000
  phone    pixel 895 0 2 -> 800000 | pixel 896 0 2 -> 7F0000 | pixel 903 0 2 -> 7F0000
  phone    pixel 904 359 2 -> 7E0000 | pixel 1911 359 2 -> 010000 | pixel 1912 359 2 -> 000000
  # three bands of 360 rows
  phone    pixel 0 360 2 -> 00FF00 | pixel 0 719 2 -> 00FF00 | pixel 0 720 2 -> 0000FF
  phone    pixel 0 1079 2 -> 0000FF

other pictures in the other modes, one behind the other
  send     hdmi=1 | hdmi=2,2,1 -> HDMI: ,OK
  phone    screen 2 -> 1280x720x32 page 0 unblanked mode 4
  phone    pixel 1 0 2 -> 010101 | pixel 255 719 2 -> FFFFFF | pixel 256 719 2 -> 000000
  phone    pixel 1279 719 2 -> FFFFFF
  send     hdmi=2,3 -> HDMI: ,OK
  phone    screen 2 -> 720x480x32 page 0 unblanked mode 3
  phone    pixel 719 479 2 -> FFFFFF | pixel 0 0 2 -> FFFFFF
  # 720 / 256 = 2 columns a level, the last 208 one more; any other number is the ramps too
  send     hdmi=2,200 -> HDMI: ,OK
  phone    pixel 95 0 2 -> D00000 | pixel 96 0 2 -> CF0000 | pixel 98 159 2 -> CF0000
  phone    pixel 99 160 2 -> 00CE00 | pixel 719 479 2 -> 000000
  # the old picture was stopped each time
  phone    shell 3 -> 0 echo 1 > /sys/class/graphics/fb1/hpd\n0 echo 0 > /sys/hvt/hvt-hdmi/tmds\n0 echo 0 > /sys/hvt/hvt-hdmi/tmds

a picture ends, and a picture that isn't there is an error
  send     hdmi=1 -> HDMI: ,OK
  send     hdmi=2,0 | hdmi=2,3,3 -> HDMI:HDMI set output video error,ERROR
  send     hdmi=2,3,2 | hdmi=2,0 -> HDMI: ,OK
  phone    screen 2 -> 1920x1080x32 page 0 blanked mode 34
  send     hdmi=2 -> HDMI:HDMI set output video error,ERROR
  # the same mode is set anew behind a blank
  send     hdmi=2,3,2 -> HDMI: ,OK
  phone    screen 2 -> 1920x1080x32 page 0 unblanked mode 34 | pixel 5 5 2 -> FFFFFF

the panel is the active screen again behind a picture, and the output stays selected where it fails
  send     lcdl=1,0 -> LCDL: ,OK
  send     hdmi=1 | hdmi=2,3,2 -> HDMI: ,OK
  send     dclr=0,1,2,3 -> DCLR: ,OK
  phone    pixel 5 5 -> 010203 | pixel 5 5 2 -> FFFFFF
  send     hdmi=2,1,7 -> HDMI:HDMI set output video error,ERROR
  send     dclr=0,4,5,6 -> DCLR: ,OK
  phone    pixel 5 5 -> 010203 | pixel 5 5 2 -> 040506
  # a picture survives a stop of the output, and is none of the next start's
  send     hdmi=0 -> HDMI: ,OK
  phone    pixel 5 5 2 -> 040506
  send     hdmi=1 -> HDMI: ,OK
  send     hdmi=2,0 -> HDMI:HDMI set output video error,ERROR

a request for the end that the framebuffer refuses counts as the end
  send     hdmi=1 | hdmi=2,3,2 -> HDMI: ,OK
  phone    shell 1 -> 0 echo 1 > /sys/class/graphics/fb1/hpd
  phone    fail ioctl /dev/graphics/fb1 off
  send     hdmi=2,0 -> HDMI:HDMI set output video error,ERROR
  phone    fail off -> 0 faults were never reached
  # no TMDS line, and nothing is left to end
  phone    shell 1 -> 0 echo 1 > /sys/class/graphics/fb1/hpd
  send     hdmi=2,0 -> HDMI:HDMI set output video error,ERROR

the tone goes through the modem, path first
  send     hdmi=1 -> HDMI: ,OK
  #:
  send     hdmi=3,1 -> HDMI: ,OK
  phone    diag recent -> 4B0B0E00000002000C001E00\n4B0B0E00040004000C00E803E8030000
  send     hdmi=3,0 -> HDMI: ,OK
  phone    diag last -> 4B0B0E00050000000C00
  send     hdmi=3,2 -> HDMI:HDMI set output 1kHz sine tone error,ERROR
  phone    diag 4B0B0E0000 silent | speed 1000
  send     hdmi=3,1 -> HDMI:HDMI set output 1kHz sine tone error,ERROR
  # without a path no tone is begun
  phone    diag last -> 4B0B0E00000002000C001E00

the bytes of the key selection, and lines that hold none
  send     hdmi=1 -> HDMI: ,OK
  #:
  send     hdmi=4 -> HDMI:0x13,0xA4,0x39,0x08,0xE6,0x71,OK
  write    /sys/hvt/hvt-hdmi/hdcp 0 0x01 2 255 0xfe  0 17 18\n
  send     hdmi=4 -> HDMI:0x1,0x02,0xFF,0xFE,0x00,0x11,OK
  write    /sys/hvt/hvt-hdmi/hdcp 0 9\n
  send     hdmi=4 -> HDMI:0x9,0x00,0x00,0x00,0x00,0x00,OK
  write    /sys/hvt/hvt-hdmi/hdcp -1 19 164 57 8 230 113\n
  send     hdmi=4 -> HDMI: ,ERROR
  write    /sys/hvt/hvt-hdmi/hdcp 0 19 164 -57 8 230 113\n
  send     hdmi=4 -> HDMI: ,ERROR
  write    /sys/hvt/hvt-hdmi/hdcp 0 19 256 57 8 230 113\n
  send     hdmi=4 -> HDMI: ,ERROR
  write    /sys/hvt/hvt-hdmi/hdcp no keys\n
  send     hdmi=4 -> HDMI: ,ERROR
  write    /sys/hvt/hvt-hdmi/hdcp 
  send     hdmi=4 -> HDMI: ,ERROR
  write    /sys/hvt/hvt-hdmi/hdcp 0 19 164 57 8 230 113 \*3000{0}\n
  send     hdmi=4 -> HDMI:0x13,0xA4,0x39,0x08,0xE6,0x71,OK
  write    /sys/hvt/hvt-hdmi/hdcp 0 19 164\*2100{ }57 8 230 113\n
  send     hdmi=4 -> HDMI: ,ERROR

a monitor comes and goes
  send     hdmi=1 -> HDMI: ,OK
  #:
  send     hdmi=5 -> HDMI:0x1,OK
  phone    shell 1 -> 0 echo 1 > /sys/hvt/hvt-hdmi/tmds
  phone    sink out
  send     hdmi=5 -> HDMI:0x0,OK
  phone    sink in
  send     hdmi=5,0 -> HDMI:0x1,OK
  # a second look comes with 0 alone, and then it counts
  phone    fail nth 2 open /sys/class/graphics/fb1/connected
  send     hdmi=5 -> HDMI:0x1,OK
  phone    fail off -> 1 fault was never reached: nth 2 open /sys/class/graphics/fb1/connected
  phone    fail nth 2 open /sys/class/graphics/fb1/connected
  send     hdmi=5,1 -> HDMI:0x1,OK
  phone    fail off -> 1 fault was never reached: nth 2 open /sys/class/graphics/fb1/connected
  phone    fail nth 2 open /sys/class/graphics/fb1/connected
  send     hdmi=5,0 -> HDMI:HDMI sink service detection error,ERROR
  phone    sink out | fail nth 2 open /sys/class/graphics/fb1/connected
  send     hdmi=5,0 -> HDMI:0x0,OK
  phone    fail off -> 1 fault was never reached: nth 2 open /sys/class/graphics/fb1/connected
  phone    sink in
  send     hdmi=0 -> HDMI: ,OK
  file     /sys/class/graphics/fb1/connected -> 0\n
  send     hdmi=1 -> HDMI: ,OK
  # the last line counts, by its sign
  write    /sys/class/graphics/fb1/connected 0\n7\n
  send     hdmi=5 -> HDMI:0x1,OK
  write    /sys/class/graphics/fb1/connected 1\n-5\n
  send     hdmi=5 -> HDMI:HDMI sink service detection error,ERROR
  write    /sys/class/graphics/fb1/connected maybe\n
  send     hdmi=5 -> HDMI:HDMI sink service detection error,ERROR
  write    /sys/class/graphics/fb1/connected 
  send     hdmi=5 -> HDMI:HDMI sink service detection error,ERROR

what the monitor tells of itself
  send     hdmi=1 -> HDMI: ,OK
  #:
  send     hdmi=6 -> HDMI:0x1,OK
  # 1920 x 1080 of the maker VPH, called "HVT monitor"; the sum of a block is 0
  send     hdmi=6,0 -> HDMI: ,0x00,0xff,0xff,0xff,0xff,0xff,0xff,0x00,0x5a,0x08,0x80,0x10,0x67,0x12,0x00,0x00,
  +        0x1e,0x17,0x01,0x03,0x80,0x34,0x1d,0x78,0x0a,0xee,0x91,0xa3,0x54,0x4c,0x99,0x26,
  +        0x0f,0x50,0x54,0x21,0x08,0x00,0x01,0x01,0x01,0x01,0x01,0x01,0x01,0x01,0x01,0x01,
  +        0x01,0x01,0x01,0x01,0x01,0x01,0x02,0x3a,0x80,0x18,0x71,0x38,0x2d,0x40,0x58,0x2c,
  +        0x45,0x00,0x08,0x22,0x21,0x00,0x00,0x1e,0x00,0x00,0x00,0xfd,0x00,0x32,0x4b,0x1e,
  +        0x51,0x11,0x00,0x0a,0x20,0x20,0x20,0x20,0x20,0x20,0x00,0x00,0x00,0xfc,0x00,0x48,
  +        0x56,0x54,0x20,0x6d,0x6f,0x6e,0x69,0x74,0x6f,0x72,0x0a,0x20,0x00,0x00,0x00,0x10,
  +        0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x01,0x71,OK
  # an extension of version 3: modes 16, 4, 3 and 34
  send     hdmi=6,1 -> HDMI: ,0x02,0x03,0x17,0xc1,0x44,0x90,0x04,0x03,0x22,0x23,0x09,0x07,0x07,0x83,0x01,0x00,
  +        0x00,0x65,0x03,0x0c,0x00,0x10,0x00,0x01,0x1d,0x00,0x72,0x51,0xd0,0x1e,0x20,0x6e,
  +        0x28,0x55,0x00,0x08,0x22,0x21,0x00,0x00,0x1e,0x00,0x00,0x00,0x00,0x00,0x00,0x00,
  +        0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,
  +        0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,
  +        0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,
  +        0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,
  +        0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0xa1,OK

a monitor whose second block isn't whole, and one that tells nothing
  send     hdmi=1 -> HDMI: ,OK
  # no second block: 0xEE has a right sum, 128 * 238 = 119 * 256, but it is no extension
  write    /sys/hvt/hvt-hdmi/edid 0\*128{ 7}\n
  send     hdmi=6 -> HDMI:0x0,OK
  send     hdmi=6,0 -> HDMI: ,\*128{0x07,}ERROR
  send     hdmi=6,1 -> HDMI: ,\*128{0xee,}ERROR
  # a right beginning and a right sum, then each of them wrong: 2 + 3 + 251 = 256
  write    /sys/hvt/hvt-hdmi/edid 0\*128{ 7} 2 3 251\*125{ 0}\n
  send     hdmi=6 -> HDMI:0x1,OK
  write    /sys/hvt/hvt-hdmi/edid 0\*128{ 7} 2 3 250\*125{ 0}\n
  send     hdmi=6 -> HDMI:0x0,OK
  write    /sys/hvt/hvt-hdmi/edid 0\*128{ 7} 2 4 250\*125{ 0}\n
  send     hdmi=6 -> HDMI:0x0,OK
  write    /sys/hvt/hvt-hdmi/edid 0\*128{ 7} 3 3 250\*125{ 0}\n
  send     hdmi=6 -> HDMI:0x0,OK
  # bytes behind the 256 don't count
  write    /sys/hvt/hvt-hdmi/edid 0\*128{ 7} 2 3 251\*125{ 0} 999 x\n
  send     hdmi=6 -> HDMI:0x1,OK
  write    /sys/hvt/hvt-hdmi/edid 0 1 2 0x1F -4\n
  send     hdmi=6 -> HDMI:EDID Header: 0x01021feeeeeeeeee,ERROR
  write    /sys/hvt/hvt-hdmi/edid -22\n
  send     hdmi=6,1 -> HDMI:EDID Header: 0xeeeeeeeeeeeeeeee,ERROR

a CEC command is written as a frame, with the bus powered around it
  send     hdmi=1 -> HDMI: ,OK
  #:
  send     hdmi=7,4 -> HDMI:21,OK
  file     /sys/class/graphics/fb1/cec_wr_frame -> \x04\0\x04\*15{\0}\x02\x01
  phone    shell 4 -> 0 echo 1 > /sys/hvt/hvt-hdmi/pwr\n0 echo 1 > /sys/class/graphics/fb1/cec
  +        \n0 echo 0 > /sys/class/graphics/fb1/cec\n0 echo 0 > /sys/hvt/hvt-hdmi/pwr
  send     hdmi=7,54 -> HDMI:1,OK
  file     /sys/class/graphics/fb1/cec_wr_frame -> \x04\0\x36\*15{\0}\x02\x01
  # what was switched on is switched off when the frame can't be written
  phone    fail open /sys/class/graphics/fb1/cec_wr_frame
  send     hdmi=7,4 -> HDMI:HDMI set CEC identifier error,ERROR
  phone    shell 2 -> 0 echo 0 > /sys/class/graphics/fb1/cec\n0 echo 0 > /sys/hvt/hvt-hdmi/pwr
  phone    fail open /sys/class/graphics/fb1/cec_wr_frame
  send     hdmi=7,54 -> HDMI:1,OK
  send     hdmi=7,256 -> HDMI:HDMI set CEC identifier error,ERROR

the test line, and the firmware that can't be changed
  send     hdmi=1 | hdmi=8,1 -> HDMI: ,OK
  file     /sys/hvt/hvt-hdmi/tmds -> 1\n
  send     hdmi=8 -> HDMI: ,OK
  file     /sys/hvt/hvt-hdmi/tmds -> 0\n
  send     hdmi=8,2 -> HDMI:HDMI set output 1kHz sine tone error,ERROR
  file     /sys/hvt/hvt-hdmi/tmds -> 0\n
  send     hdmi=9 -> HDMI:Download hdmi firmware error,ERROR

a phone without the output's framebuffer
  conf     without /dev/graphics/fb1
  send     hdmi=1 -> HDMI:Turn on hdmi error,ERROR
  send     hdmi=2,1 -> HDMI:HDMI is not turn on,ERROR

the output is found anew behind each stop
  send     hdmi=1 | hdmi=0 -> HDMI: ,OK
  phone    fail open /dev/graphics/fb0
  send     hdmi=1 -> HDMI:Turn on hdmi error,ERROR
  phone    fail ioctl /dev/graphics/fb1
  send     hdmi=1 -> HDMI:Turn on hdmi error,ERROR
  send     hdmi=1 -> HDMI: ,OK
