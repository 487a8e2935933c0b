#: Drives the compass. A reading is the chip's value, corrected by its sensitivities, in steps of 0.6 microtesla.
#: ecmt=1 | starts it; that it isn't there is told by the readings. Answers with an empty line
#: ecmt | stops it, as `ecmt=0` does
#: ecmt=2 | the field along x, y and z; `ERROR` without a line when none came, or it is too strong
#: ecmt=5 | measures the chip's own coil: good is -100 to 100 for x and y, -1000 to -300 for z. Three times 32766 is an
#:   interrupt line that doesn't behave, 32767 a measurement that didn't come; 0,0,0 when not started
#: ecmt=6 | the temperature, 0.0 on this chip
#: Another action is `ERROR` without a line.

a reading of the field, started and stopped
  conf     tremble off
  send     ecmt=2 -> ERROR
  send     ecmt=5 -> ECMT:0,0,0,OK
  send     ecmt=1 -> ECMT:,OK
  # 21 uT are 35 steps; the chip, 44 / 256 less sensitive, gives 30; 30 * 44 / 256 = 5.2. So -18 and 46: -3; -60 and
  # 35: -8
  #:
  send     ecmt=2 -> ECMT:35,-21,-68,OK
  phone    i2c 5 0C 03 -> 1E
  # -142, 57 and 367, corrected by -24, 10 and 50
  phone    magnet -100 40.3 250
  send     ecmt?2 -> ECMT:-166,67,417,OK
  send     ecmt -> ECMT:,OK
  send     ecmt=2 -> ERROR
  phone    files i2c ->

the sensitivities are taken at the start, and rounded half away from zero
  conf     tremble off
  # twice as sensitive at 384, half as much at 0, and none of both at 128
  phone    i2c 5 0C 10 00 | i2c 5 0C 11 80 | i2c 5 0C 12 FF
  send     ecmt=1 -> ECMT:,OK
  phone    i2c 5 0C 0A -> 00
  # 35 steps at 0.5: 70, less 70 * 128 / 256. -21.67: -22. -68.33 / 1.49609: -46; 127 * 46 / 256 = 22.8
  send     ecmt=2 -> ECMT:35,-22,-69,OK
  # 5 steps at 0.5: 10... and 2.5 more: 5 steps of z are 3, and 127 * 3 / 256 = 1.49
  phone    magnet 3.3 0 3
  # 11 at 0.5: 11 * 128 / 256 = 5.5, rounded to 6
  send     ecmt=2 -> ECMT:5,0,4,OK

an overflow, and a reading that doesn't come, are errors
  send     ecmt=1 -> ECMT:,OK
  # 4912 uT, added
  phone    magnet 2000 -1500 1413
  send     ecmt=2 -> ERROR
  phone    magnet 2000 -1500 1411 | tremble off
  send     ecmt=2 -> ECMT:3333,-2500,2352,OK
  phone    sensor compass silent
  send     ecmt=2 -> ERROR
  phone    sensor compass good | fail ioctl /dev/i2c-5 all
  send     ecmt=2 -> ERROR
  phone    fail off
  send     ecmt=2 -> ECMT:3333,-2500,2352,OK

a compass of another identity isn't started, and the bus isn't kept open
  phone    i2c 5 0C 00 49
  send     ecmt=1 -> ECMT:,OK
  send     ecmt=2 -> ERROR
  phone    files i2c ->

the self test shows the coil's field on a good phone, and what is broken
  conf     tremble off
  send     ecmt=1 -> ECMT:,OK
  # 12.6, -20.4 and -307.2 uT: 18, -29 and -450, corrected by 3, -5 and -62
  #:
  send     ecmt=5 -> ECMT:21,-34,-512,OK
  phone    i2c 5 0C 0C -> 40
  # data ready that doesn't go, that doesn't come
  phone    gpio 67 1
  send     ecmt=5 -> ECMT:32766,32766,32766,OK
  phone    gpio 67 0
  send     ecmt=5 -> ECMT:32766,32766,32766,OK
  phone    gpio 67 free
  # what was measured and not read is still announced
  send     ecmt=5 -> ECMT:32766,32766,32766,OK
  send     ecmt=2 -> ECMT:35,-21,-68,OK
  phone    sensor compass silent
  send     ecmt=5 -> ECMT:32767,32767,32767,OK
  # the reading stays where it is
  phone    sensor compass good
  send     ecmt=2 -> ECMT:35,-21,-68,OK
  phone    sensor compass stuck | magnet 0 0 0
  send     ecmt=5 -> ECMT:35,-21,-68,OK
  phone    sensor compass good | fail ioctl /dev/i2c-5 all
  send     ecmt=5 -> ECMT:32767,32767,32767,OK

data ready goes up when a measurement is done, and down when it is read
  send     i2cw=5,c,a,1 -> I2CW:,OK
  phone    clock hold
  send     i2cw=5,c,a,1 -> I2CW:,OK
  phone    clock +7 | gpio 67 -> 0 | i2c 5 0C 02 -> 00
  phone    clock +1 | gpio 67 -> 1 | i2c 5 0C 02 -> 01 | i2c 5 0C 0A -> 00
  send     i2cr=5,c,9 -> I2CR:0x00,OK
  phone    gpio 67 -> 0

no temperature, and lines that are none
  send     ecmt=6 -> ECMT:0.0,OK
  send     ecmt=3 | ecmt=4 | ecmt=7 -> ERROR
  send     ecmt=1,2 -> ecmt      (0-6)                                             test(act),SYNTAX
  send     ecmt=? -> ECMT:Tests the compass,ecmt      (0-6)                                             test(act),OK
