#: Controls the FM receiver.
#: fmct=1[,FREQ] | starts the receiver, and tunes: FREQ up to 1080 in units of 100 kHz, from 1081 on in Hz. What is outside
#:   76 to 108 MHz is tuned to the nearer end
#: fmct=2,BAND | the band: 0 Japan, 1 Japan wide, 2 Europe and US; without effect on this phone
#: fmct=4 | the device's number, 0x0000 on this phone; 5: the chip's
#: fmct=6 | the level that the last tuning found
#: fmct=7,REG | a register, 0x0000 on this phone
#: fmct=0 | stops
#: A start that fails is `Start Fail`, a tuning that fails `tune fail`, before what follows. 0, 2, 6 and 7 want a receiver
#: that is on: without it they are `ERROR` without a line.

the receiver starts once, and tunes in units of 100 kHz or in Hz
  send     fmct=1 -> FMCT: ,OK
  phone    shell 1 -> 0 insmod /system/modules/radio-iris-transport.ko
  #:
  send     fmct=1,1000 -> FMCT: ,OK
  phone    shell 1 -> 0 fmftmtest -f 100000
  send     fmct?1,87654000 -> FMCT: ,OK
  phone    shell 3 -> 0 insmod /system/modules/radio-iris-transport.ko\n0 fmftmtest -f 100000\n0 fmftmtest -f 87654

a frequency beyond the band is the band's end
  send     fmct=1,0 | fmct=1,1080 | fmct=1,1081 | fmct=1,200000000 | fmct=1,-1 -> FMCT: ,OK
  send     fmct=1,760 -> FMCT: ,OK
  phone    shell 6 -> 0 fmftmtest -f 76000\n0 fmftmtest -f 108000\n0 fmftmtest -f 76000\n0 fmftmtest -f 108000\n0 fmftmtest -f 108000\n0 fmftmtest -f 76000

a wrong count of values starts the receiver and is an error
  send     fmct -> ERROR
  #:
  send     fmct=6 -> FMCT:0x0000,OK
  send     fmct=0,1,2 -> ERROR
  send     fmct=6 -> FMCT:0x0000,OK

the level is what the last tool has left, whichever that was
  send     fmct=6 -> ERROR
  send     fmct=1,1000 -> FMCT: ,OK
  # 61
  send     fmct=6 -> FMCT:0x003d,OK
  phone    tool fmftmtest -f 74565
  send     fmct=1,1000 -> FMCT: ,OK
  send     fmct=6 -> FMCT:0x12345,OK
  phone    tool fmftmtest -f none
  send     fmct=1,1000 -> FMCT: ,OK
  send     fmct=6 -> FMCT:0x0000,OK
  phone    tool fmftmtest -f -2 dB
  send     fmct=1,1000 -> FMCT: ,OK
  send     fmct=6 -> FMCT:0xfffffffe,OK

a start that fails says so, before what its row says, and the next start loads the module again
  phone    fail insmod 5
  send     fmct=1 -> FMCT:Start Fail,FMCT: ,ERROR
  send     fmct=1,1000 | fmct | fmct=4 | fmct=5 -> FMCT:Start Fail,ERROR
  send     fmct=1 -> FMCT: ,OK
  phone    fail fmftmtest
  send     fmct=1,1000 -> FMCT:tune fail,FMCT: ,ERROR
  send     fmct=1,1000 -> FMCT: ,OK

a phone without the module never starts
  conf     without /system/modules/radio-iris-transport.ko
  send     fmct=1,1000 -> FMCT:Start Fail,ERROR
  phone    shell 1 -> 1 insmod /system/modules/radio-iris-transport.ko

identity starts the receiver, bands and registers want one that is on
  send     fmct=2,0 | fmct=7,1 | fmct=0 -> ERROR
  send     fmct=4 -> FMCT:0x0000,OK
  send     fmct=2,0 | fmct=2,2 -> FMCT: ,OK
  send     fmct=2,3 -> FMCT: ,SYNTAX
  # its low 16 bits
  send     fmct=2,0x10001 -> FMCT: ,OK
  send     fmct=7,255 -> FMCT:0x0000,OK
  send     fmct=0 -> FMCT: ,OK
  send     fmct=6 -> ERROR
  send     fmct=5 | fmct=6 -> FMCT:0x0000,OK

other acts do nothing; of act the low byte counts
  send     fmct=3,1 | fmct=8 -> ERROR
  phone    shell 1 -> 0 echo 1 > /dev/wcnss_wlan
  send     fmct=257 -> FMCT: ,OK

the help has five lines
  send     fmct=?
  expect   FMCT:FM radio control,FMCT:act(0=stop, 1=start freq set, 3=freq band set, 4=dev id),FMCT:act(5=chip id, 6=rssi value, 7=read reg),FMCT:freq(0-1080),FMCT:band(0=japan, 1=japan wide, 2=eu/us),
  + fmct      (0-5),(760-1080)                                  ctrl(act,(freq,band)),OK
