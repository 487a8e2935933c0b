#: Drives the ambient light sensor, one half of the light and proximity chip.
#: lsen=1,TIME | starts the sensor if it isn't, and reads it: counts, `0x2CA`. TIME, 0 to 5000 ms, has no effect. A
#:   sensor that can't be started is `ERROR` behind `start errno 0 `, as is a third value other than 0
#: lsen=3[,GAIN] | the same, and sets GAIN first: 0 to 5 are 0.16, 1, 1.28, 8, 16 and 120. What can't be read is 0x0
#: lsen=0 | stops the sensor, and with it the proximity half. Answers with one blank
#: lsen?A[,B] | gives the values back
#: Another form is `SYNTAX` without a line. The last of `lsen` and `proxs` to start the chip rules its registers.

the light on the panel, in counts
  # 180 lx * 2.73 ms * 37 cycles / 25.48 = 713.6
  #:
  send     lsen=1,0 -> LSEN:0x2CA,OK
  phone    light 50.5
  # 200.2
  send     lsen=1,5000,0 -> LSEN:0xC8,OK
  phone    light 0
  send     lsen=3 -> LSEN:0x0,OK
  # 37 cycles count up to 1024 each, less one
  phone    light 100000
  send     lsen=3 -> LSEN:0x93FF,OK
  send     lsen=0 -> LSEN: ,OK
  phone    i2c 5 39 00 -> 00 | files i2c ->
  send     lsen=0 -> LSEN: ,OK

a start writes the table, the enable register last
  send     lsen=3 -> LSEN:0x2CA,OK
  send     i2cr=5,39,a0,10 -> I2CR:0x1b,0xdb,0xff,0xff,0x00,0x02,0x00,0x04,0x00,0x00,0x00,0x00,0x22,0x00,0x00,0x00,OK
  # a sensor that is started isn't set up again
  phone    i2c 5 39 04 11
  send     lsen=3 -> LSEN:0x2CA,OK
  phone    i2c 5 39 04 -> 11

six gains, from 0.16 to 120
  # 713.6 times 0.16, 1, 1.28, 8 and 16; 120 is clipped
  send     lsen=3,0 -> LSEN:0x72,OK
  phone    i2c 5 39 0F -> 00 | i2c 5 39 0D -> 04
  send     lsen=3,1 -> LSEN:0x2CA,OK
  #:
  send     lsen=3,2 -> LSEN:0x391,OK
  phone    i2c 5 39 0F -> 01 | i2c 5 39 0D -> 04
  send     lsen=3,3 -> LSEN:0x164D,OK
  send     lsen=3,4 -> LSEN:0x2C99,OK
  phone    i2c 5 39 0F -> 02 | i2c 5 39 0D -> 00
  send     lsen=3,5 -> LSEN:0x93FF,OK
  phone    i2c 5 39 0F -> 03

a gain of the wrong kind starts nothing
  send     lsen=1,0,5 | lsen=1,0,0x100 -> LSEN:start errno 0 ,ERROR
  phone    i2c 5 39 00 -> 00
  send     lsen=1,0,0 -> LSEN:0x2CA,OK

a bus that can't be opened, and one that doesn't answer
  phone    fail open /dev/i2c-5 all
  send     lsen=1,0 -> LSEN:start errno 0 ,ERROR
  send     lsen=3 | lsen=3,4 -> LSEN:0x0,OK
  phone    fail off | fail ioctl /dev/i2c-5 all
  send     lsen=3 -> LSEN:0x0,OK

reading echoes, and lines that are none
  send     lsen? -> LSEN: ,OK
  send     lsen?3 -> LSEN:3 ,OK
  send     lsen?-1,4 -> LSEN:-1 4,OK
  send     lsen?1,2,3 -> LSEN: ,OK
  send     lsen | lsen=1 | lsen=1,5001 | lsen=1,-1 | lsen=1,1,0,0 | lsen=3,6 | lsen=3,-1 -> SYNTAX
  send     lsen=3,1,1 | lsen=0,1 | lsen=2 | lsen=4 -> SYNTAX
  send     lsen=? -> LSEN:Tests the lightsensor,
  +        lsen      (0-3)[,(0x0-0x1388),(0x00-0xff)]                  test(act,[<time(msec)>/<gain>]),OK
