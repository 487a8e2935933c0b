#: Drives the accelerometer. Readings are in milli-g as stations of this phone have always had them: 1024 steps of the
#: chip are 1000, and 1000 is shown as 976.5625.
#: acct=1 | starts the sensor with the stored offsets; without three bytes of them it doesn't start, which the readings
#:   tell. Answers with one blank
#: acct=0 | stops it
#: acct=2 | x, y and z in milli-g; not started is `ERROR`
#: acct=3 | the chip's id, 0xfa; 0x0 when not started
#: acct=4,X,Y,Z | stores wanted offsets, in milli-g, steps of 7.8125; they count from the next start on. `SYNTAX` unless
#:   there are three numbers
#: acct=5 | the self test: 0x0, or the sum of what is broken. 1 and 2 the interrupt lines, 4, 8 and 16 the axes; 0xff
#:   when not started
#: acct=6 | the offsets in force, in milli-g
#: acct=7 | the state of the ROM, which this chip lacks: `ERROR`; so is `acct=8`
#: acct=9 | the temperature, 0x0 on this chip
#: acct=10,COUNT,0,BANDWIDTH | COUNT samples, each `TIME,X,Y,Z,`: the time since the sample before in 100 us, milli-g in
#:   whole numbers. BANDWIDTH 1 to 8 is 7.81 to 1000 Hz, each twice the one before. Leaves the line term a comma. No
#:   sample for a second, another mode than 0 or another bandwidth is `ERROR`
#: acct=32 | copies the chip's memory into its unit: 1, or 0 when that wasn't done
#: What fails is `ERROR` behind one blank; another action is `SYNTAX`. Values that an action has no use for are passed
#: over.

a reading of how the phone lies, started and stopped
  conf     tremble off
  send     acct=2 -> ACCT: ,ERROR
  send     acct=3 -> ACCT:0x0,OK
  send     acct=1 -> ACCT: ,OK
  send     acct=3 -> ACCT:0xfa,OK
  # a new phone lies at 20 -35 998: 20, -36, 1022 steps; 19, -35, 998; each divided by 1.024
  #: The phone lies on the desk:
  send     acct=2 -> ACCT:18.554688,-34.179688,974.609375,OK
  # 512, -257 and 819 steps; 500, -250, 799
  phone    pose 500 -250.5 800
  send     acct=2,5 -> ACCT:488.281250,-244.140625,780.273438,OK
  phone    pose -> 500 -250.5 800
  # clipped at 2047 and -2048
  phone    pose 3000 -3000 -1000
  send     acct?2 -> ACCT:1952.148438,-1953.125000,-976.562500,OK
  send     acct=0 -> ACCT: ,OK
  send     acct=2 -> ACCT: ,ERROR
  phone    files i2c ->

a start sets range and bandwidth and writes the stored offsets
  phone    unit 0x80001363 7F80FF | i2c 5 18 0F 0C
  send     acct=1 -> ACCT: ,OK
  phone    i2c 5 18 0F -> 03 | i2c 5 18 10 -> 0A | i2c 5 18 38 -> 7F | i2c 5 18 39 -> 80
  phone    i2c 5 18 3A -> FF
  # signed bytes of 1000 / 128 milli-g
  send     acct=6 -> ACCT:992.187500,-1000.000000,-7.812500,OK
  # a second start does nothing
  phone    i2c 5 18 38 01
  send     acct=1 -> ACCT: ,OK
  phone    i2c 5 18 38 -> 01

without offsets of three bytes nothing starts, and the bus isn't kept open
  phone    unit 0x80001363 -
  send     acct=1 -> ACCT: ,OK
  send     acct=6 -> ACCT: ,ERROR
  phone    unit 0x80001363 01020304
  send     acct=1 -> ACCT: ,OK
  send     acct=2 -> ACCT: ,ERROR
  phone    unit 0x80001363 0102
  send     acct=1 -> ACCT: ,OK
  send     acct=5 -> ACCT:0xff,OK
  phone    files i2c ->
  send     acct=4,0,0,0 | acct=1 -> ACCT: ,OK
  send     acct=6 -> ACCT:0.000000,0.000000,0.000000,OK

wanted offsets are stored and move the readings from the next start on
  conf     tremble off
  send     acct=1 -> ACCT: ,OK
  # (100 * 128 + 500) / 1000 = 13; 15.625 and 39.0625 stay what they were: -2 and 5
  send     acct=4,100,-15.625,39.0625 -> ACCT: ,OK
  phone    unit 0x80001363 -> 0DFE05 | i2c 5 18 38 -> 02
  send     acct=2 -> ACCT:18.554688,-34.179688,974.609375,OK
  send     acct=0 | acct=1 -> ACCT: ,OK
  # x has 11 steps of 7.8125 more: 105.9375 milli-g are 108 steps, 105
  send     acct=2 -> ACCT:102.539062,-34.179688,974.609375,OK

an offset is rounded to its step, cut at 127, and must be a number
  # (7.8125 * 128 + 500) / 1000 = 1.5; 3.9 * 128 + 500 = 999.2
  send     acct=4,-7.8125,3.9,-1000 -> ACCT: ,OK
  phone    unit 0x80001363 -> FF0081
  send     acct=4, 1e30 ,,-1e30,0.5, -> ACCT: ,OK
  phone    unit 0x80001363 -> 7F8100
  send     acct=4,1,2 | acct=4,1,2,3,4 | acct=4,1,nan,2 | acct=4,1,x,2 -> ACCT: ,SYNTAX
  send     acct=4\*2000{,7} -> ACCT: ,SYNTAX
  phone    unit 0x80001363 -> 7F8100
  phone    fail auxnvq_write_unit all
  send     acct=4,1,2,3 -> ACCT: ,ERROR
  phone    fail off | unit 0x80001363 -> 7F8100

the self test passes on a good phone, and leaves its registers in use
  send     acct=1 -> ACCT: ,OK
  #:
  send     acct=5 -> ACCT:0x0,OK
  phone    i2c 5 18 20 -> 05 | i2c 5 18 32 -> 00 | i2c 5 18 0F -> 03 | i2c 5 18 10 -> 0A

the self test names what is broken
  send     acct=1 -> ACCT: ,OK
  phone    gpio 73 0
  send     acct=5 -> ACCT:0x1,OK
  phone    gpio 73 free | gpio 65 1
  send     acct=5 -> ACCT:0x2,OK
  phone    gpio 65 free
  # without its high byte an axis moves by 15 steps of 1000 / 256 at most
  phone    fail i2c 5 18 03 all
  send     acct=5 -> ACCT:0x4,OK
  phone    fail off | fail i2c 5 18 05 all
  send     acct=5 -> ACCT:0x8,OK
  phone    fail off | fail i2c 5 18 07 all
  send     acct=5 -> ACCT:0x10,OK
  phone    fail off | fail i2c 5 18 32 all
  send     acct=5 -> ACCT:0x1c,OK
  phone    fail off | sensor accel stuck
  send     acct=5 -> ACCT:0x1c,OK
  phone    sensor accel good | fail ioctl /dev/i2c-5 all
  send     acct=5 -> ACCT:0x1f,OK
  # a dead bus reads as zeros
  send     acct=2 -> ACCT:0.000000,0.000000,0.000000,OK

the chip's memory goes into its unit, and is closed again
  send     acct=32 -> ACCT:0,OK
  phone    unit 0x80001365 \*27{00}
  send     acct=1 -> ACCT: ,OK
  phone    i2c 5 18 11 40
  send     acct=32 -> ACCT:1,OK
  phone    unit 0x80001365 -> 5A13C42E9107B86D20F13C854BD619A270EE0D589F34C7621BA9A0
  phone    i2c 5 18 11 -> 00 | i2c 5 18 00 -> FA
  # one byte that can't be read: the checksum is wrong
  phone    unit 0x80001365 \*27{00} | fail i2c 5 18 05 1
  send     acct=32 -> ACCT:0,OK
  phone    i2c 5 18 05 -> FD
  # another chip
  phone    i2c 5 18 00 FB
  send     acct=32 -> ACCT:0,OK
  phone    unit 0x80001365 -> \*27{00}
  phone    i2c 5 18 00 FA
  # a unit that isn't there, or has another size
  phone    unit 0x80001365 -
  send     acct=32 -> ACCT:0,OK
  phone    unit 0x80001365 -> none
  phone    unit 0x80001365 \*28{11}
  send     acct=32 -> ACCT:0,OK
  phone    unit 0x80001365 -> \*28{11}
  send     acct=32,1 -> ACCT: ,SYNTAX

samples come when the chip has them, with the time between them
  conf     tremble off
  send     acct=1 -> ACCT: ,OK
  # bandwidth 4: register 11, a frame in 8 ms. It is looked for every 160 us, and 50 times that is 8 ms
  phone    clock hold
  send     acct=10,3,0,4 after 24 -> ACCT:0,19,-34,975,80,19,-34,975,80,19,-34,975,OK
  phone    i2c 5 18 10 -> 0B

the motor shakes the samples
  conf     tremble off
  send     acct=1 -> ACCT: ,OK
  phone    clock hold
  send     vibc=1 -> VIBC: ,OK
  # From rest to 175 Hz with a time constant of 40 ms: 175 * (1 - e) turns a second with e = exp(-t / 0.04), the angle
  # 2 pi * 175 * (t - 0.04 * (1 - e)). The share of 900, 620 and 140 mg is the speed squared, divided by
  # 1 + (speed / 125 Hz)^2 at bandwidth 5; x and z go with the sine, y with the sine a quarter turn before.
  send     acct=10,6,0,5
  after    24 -> ACCT:0,21,-39,975,40,39,-46,977,40,70,-25,981,40,23,20,976,40,-84,-32,958,40,52,-119,979,OK

no samples, many samples, and values that are refused
  send     acct=10,1,0,8 -> ACCT: ,ERROR
  send     acct=1 -> ACCT: ,OK
  send     acct=10,0,0,8 -> ACCT:OK
  phone    i2c 5 18 10 -> 0F
  send     acct=10,-5,0,1 -> ACCT:OK
  phone    i2c 5 18 10 -> 08
  send     acct=10,100,2,3 | acct=10,100,0,9 | acct=10,100,0,0 -> ACCT: ,ERROR
  phone    i2c 5 18 10 -> 08
  send     acct=10,2147483647,0,8 | acct=10,99999999999999999999,0,8 -> ACCT: ,ERROR
  send     acct=10,3,0 | acct=10,3,0,x | acct=10,3,0,8,1 | acct=10 -> ACCT: ,SYNTAX

the line term is a comma behind samples, whatever the station had set, and behind a failure
  conf     tremble off
  send     acct=1 -> ACCT: ,OK
  send     s3=7c,d -> S3:0x7c, 0x0d|OK
  send     acct=3 -> ACCT:0xfa|OK
  send     acct=10,0 -> ACCT: |SYNTAX
  send     acct=10,0,0,8 -> ACCT:OK
  send     acct=3 -> ACCT:0xfa,OK
  send     s3=7c,d -> S3:0x7c, 0x0d|OK
  send     acct=10,1,9,9 -> ACCT: ,ERROR

a chip that gives no sample for a second is an error, and the next line works
  send     acct=1 -> ACCT: ,OK
  phone    speed 1000 | sensor accel silent
  send     acct=10,3,0,1 -> ACCT: ,ERROR
  phone    sensor accel good | fail i2c 5 18 3F all
  send     acct=10,3,0,8 -> ACCT: ,ERROR
  phone    fail off
  # free fall can't be told from it
  phone    tremble off | pose 0 0 0
  send     acct=10,3,0,8 -> ACCT: ,ERROR
  send     acct=3 -> ACCT:0xfa,OK

the cable is pulled amid a thousand samples
  send     acct=1 -> ACCT: ,OK
  phone    clock hold
  send     acct=10,1000,0,8
  phone    clock +100 | usb off | clock +500 | usb on
  after    10 -> TP,OK
  phone    clock run
  send     acct=3 -> ACCT:0xfa,OK

a menu script gets the samples too
  conf     tremble off
  write    /system/scripts/start_korvat.lua qat("acct=1")
  + \nlocal status, text = qat("acct=10,2,0,4")
  + \nlocal out = io.open("/data/out", "w")
  + \nout:write(status, "|", text)
  + \nout:close()
  phone    key 116 tap | clock +140 | idle | clock +70 | idle | clock +20 | idle
  file     /data/out -> OK|ACCT:0,19,-34,975,80,19,-34,975,

the other actions, and lines that are none
  send     acct=1 -> ACCT: ,OK
  send     acct=7 | acct=8 -> ACCT: ,ERROR
  send     acct=9 -> ACCT:0x0,OK
  # sixteen bits
  send     acct=65539 | acct=-65533 -> ACCT:0xfa,OK
  send     acct=11 | acct=33 | acct -> ACCT: ,SYNTAX
  send     acct=? -> ACCT:Tests the accelerometer,
  +        acct      [(0-9),(float),(float),(float)],[(10),(1-1000),(2->),(1-8acct(act),OK
