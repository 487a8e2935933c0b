#: Drives the gyroscope.
#: gspt=1 | starts the sensor with the stored offsets, or with none. Answers with one blank
#: gspt=0 | stops it
#: gspt=2 | how fast the phone turns about x, y and z, degrees a second; not started is `ERROR`
#: gspt=3 | the chip's id, 0xf; 0x0 when not started
#: gspt=4,X,Y,Z | stores a wanted correction, in degrees a second, steps of 0.061, with its sign changed; it counts from
#:   the next start on. `SYNTAX` unless there are three numbers
#: gspt=5 | the self test: 0x0, or the sum of what is broken. 1 and 2 the interrupt lines, 4 the rate; 0xff when not
#:   started. The offsets are gone behind it until the next start
#: gspt=6 | the offsets in force, degrees a second
#: gspt=7 | the temperature in degrees; 0.000 when not started
#: gspt=32 | copies the chip's memory into its unit, which takes 2.4 s: 0x1. A chip of another id, or not started, is
#:   `ERROR`
#: gspt=8 | no effect on this phone but `ERROR`; neither have `gspt=2,1` and `gspt=7` with a value
#: What fails is `ERROR` behind one blank; another action is `SYNTAX`. Values that an action has no use for are passed
#: over.

a reading of how the phone turns, started and stopped
  conf     tremble off
  send     gspt=2 -> GSPT: ,ERROR
  send     gspt=3 -> GSPT:0x0,OK
  send     gspt=6 -> GSPT: ,ERROR
  send     gspt=7 -> GSPT:0.000,OK
  send     gspt=1 -> GSPT: ,OK
  send     gspt=3 -> GSPT:0xf,OK
  # 262.4 steps a degree a second: 2624, -5379 and 66 of them
  phone    turn 10 -20.5 0.25
  #:
  send     gspt=2 -> GSPT:10.000000,-20.499238,0.251524,OK
  # 32767 and -32768
  phone    turn 200 -200 0
  send     gspt=2 -> GSPT:124.874238,-124.878049,0.000000,OK
  # signed, half a degree a step from 24 degrees: 8 in a new chip
  send     gspt=7 -> GSPT:28.000,OK
  phone    i2c 5 68 08 F5
  send     gspt?7 -> GSPT:18.500,OK
  send     gspt=0 -> GSPT: ,OK
  # deep suspend
  phone    i2c 5 68 11 -> 20 | i2c 5 68 03 -> 00
  send     gspt=2 -> GSPT: ,ERROR
  phone    files i2c ->

a start sets the chip up and writes the stored offsets
  phone    i2c 5 68 0F 02
  send     gspt=1 -> GSPT: ,OK
  phone    i2c 5 68 0F -> 04 | i2c 5 68 10 -> 85 | i2c 5 68 16 -> 05 | i2c 5 68 36 -> 8C
  phone    i2c 5 68 37 -> 02 | i2c 5 68 38 -> 01 | i2c 5 68 39 -> FF | i2c 5 68 3A -> 04
  # 12 bits an axis: 0x029, 0x012, 0xFF8, divided by 16.384
  send     gspt=6 -> GSPT:2.502441,1.098633,-0.488281,OK

a unit that is absent or too large counts as none, one that is short is filled up
  phone    unit 0x80001364 -
  send     gspt=1 -> GSPT: ,OK
  send     gspt=6 -> GSPT:0.000000,0.000000,0.000000,OK
  send     gspt=0 -> GSPT: ,OK
  phone    unit 0x80001364 112233445566
  send     gspt=1 -> GSPT: ,OK
  send     gspt=6 -> GSPT:0.000000,0.000000,0.000000,OK
  send     gspt=0 -> GSPT: ,OK
  # 0x7F8 and 0x800: the ends of twelve bits
  phone    unit 0x80001364 807F80
  send     gspt=1 -> GSPT: ,OK
  send     gspt=6 -> GSPT:124.511719,-125.000000,0.000000,OK
  phone    i2c 5 68 3A -> 00

a wanted correction is stored with its sign changed, and counts from the next start on
  conf     tremble off
  send     gspt=1 -> GSPT: ,OK
  # -(10 * 2048 + 62.5) / 125 = -164 = 0xF5C, 2.5 is 41 = 0x029, -0.03 is 0: x 1111 0101 1100, y 0000 0010 1001
  send     gspt=4,10,-2.5,0.03 -> GSPT: ,OK
  phone    unit 0x80001364 -> E0F5020002 | i2c 5 68 37 -> 02
  send     gspt=0 | gspt=1 -> GSPT: ,OK
  send     gspt=6 -> GSPT:-10.009766,2.502441,0.000000,OK
  # what is too large is the largest: 0x7FF and 0x801
  send     gspt=4,-1e30, 1e30,0 -> GSPT: ,OK
  phone    unit 0x80001364 -> C07F80000E
  send     gspt=4,1.0,2.0 | gspt=4,1,2,nan | gspt=4\*2000{,7} -> GSPT: ,SYNTAX
  phone    unit 0x80001364 -> C07F80000E
  phone    fail auxnvq_write_unit all
  send     gspt=4,1,2,3 -> GSPT: ,ERROR

stored offsets make up for the chip's own error
  conf     tremble off
  phone    unit 0x80001364 -
  send     gspt=1 -> GSPT: ,OK
  # -41, -18 and 8 steps of 125 / 2048: -656.64, -288.28 and 128.13 of 262.4 a degree
  send     gspt=2 -> GSPT:-2.503811,-1.097561,0.487805,OK

the self test passes on a good phone, and names what is broken
  send     gspt=5 -> GSPT:0xff,OK
  send     gspt=1 -> GSPT: ,OK
  #:
  send     gspt=5 -> GSPT:0x0,OK
  # the last reset has taken the offsets
  phone    i2c 5 68 0F -> 04 | i2c 5 68 10 -> 85 | i2c 5 68 16 -> 0F
  send     gspt=6 -> GSPT:0.000000,0.000000,0.000000,OK
  phone    gpio 66 0
  send     gspt=5 -> GSPT:0x1,OK
  phone    gpio 66 free | gpio 75 1
  send     gspt=5 -> GSPT:0x2,OK
  phone    gpio 75 free | sensor gyro stuck
  send     gspt=5 -> GSPT:0x4,OK
  phone    sensor gyro silent | speed 100
  send     gspt=5 -> GSPT:0x4,OK
  phone    sensor gyro good | fail i2c 5 68 3C 3
  send     gspt=5 -> GSPT:0x4,OK
  phone    fail off
  send     gspt=5 -> GSPT:0x0,OK
  phone    fail ioctl /dev/i2c-5 all
  # at rest the lines are low, as they are told to be in the end
  send     gspt=5 -> GSPT:0x7,OK
  send     gspt=5,1 -> GSPT: ,ERROR

the chip's memory goes into its unit, and the signal processor works again
  conf     tremble off
  phone    speed 100 | turn 1 2 3 | unit 0x80001366 -
  send     gspt=32 -> GSPT: ,ERROR
  phone    unit 0x80001366 -> none
  send     gspt=1 -> GSPT: ,OK
  send     gspt=32 -> GSPT:0x1,OK
  phone    unit 0x80001366 -> 0B30557A9FC4E90E33587DA2C7EC11365B80A5CAEF14395E83A8CDF2173C6186ABD0F51A3F6489AED3F81D42678CB1D6FB20456A8FB4D9FE2348
  # 262, 525 and 787 steps
  send     gspt=2 -> GSPT:0.998476,2.000762,2.999238,OK
  # another chip, with its processor off
  phone    i2c 5 68 00 0E
  send     gspt=32 -> GSPT: ,ERROR
  send     gspt=2 -> GSPT:0.998476,2.000762,2.999238,OK
  # the answer is about the reading
  phone    i2c 5 68 00 0F | fail auxnvq_write_unit all
  send     gspt=32 -> GSPT:0x1,OK

what this product lacks is an error, and lines that are none
  send     gspt=1 -> GSPT: ,OK
  send     gspt=2,1 | gspt=2,1.0,5 -> GSPT: ,ERROR
  send     gspt=2,2 | gspt=2,1,2,3,4 -> GSPT: ,SYNTAX
  send     gspt=7,1 | gspt=8 -> GSPT: ,ERROR
  send     gspt=9 | gspt=65539 | gspt -> GSPT: ,SYNTAX
  send     gspt=? -> GSPT:Tests the gyro,gspt      (0-8,0x20),(float),(float),(float)                gspt(act),OK

a dead bus reads as zeros
  send     gspt=1 -> GSPT: ,OK
  phone    turn 10 20 30 | fail ioctl /dev/i2c-5 all
  send     gspt=2 -> GSPT:0.000000,0.000000,0.000000,OK
  send     gspt=3 -> GSPT:0x0,OK
