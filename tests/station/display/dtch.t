#: Starts and ends the live touch test, in which the phone reports the finger on the panel.
#: dtch=1 | reports each press once: `DTCH:X,Y,X2,Y2,OK`, in panel pixels, X2 and Y2 the second finger or the same
#:   again
#: dtch=2[,INTERVAL] | reports the way of the finger in the same form; INTERVAL, 1 to 1000 ms, leaves out what comes
#:   sooner. There is at most a report each 20 ms
#: dtch=3 | reports presses and releases, `DTCH:1,X,Y,X2,Y2,OK` and `DTCH:0,...`
#: dtch=0 | ends it and closes the device
#: Answers with one blank; `ERROR` when the panel's driver doesn't come up. Reports come at any time after that, each
#: with CR LF behind it, whatever `s3` and `s4` say; a started screen shows a small cross at each. A menu on the phone
#: takes the reports over for good.
# The live touch test: what the station reads of a finger on the panel.

the driver is loaded, and a tap is reported once, at the press
  #:
  send     dtch=1 -> DTCH: ,OK
  phone    shell 1 -> 0 insmod /system/modules/max1187x.ko
  phone    touch 540 960 down
  expect   DTCH:540,960,540,960,OK
  # the release is seen before the next press comes
  phone    touch 540 960 up | clock +100 | touch 1079 1919 tap
  expect   DTCH:1079,1919,1079,1919,OK

a trace follows the finger, in the places where it is when it is asked
  send     dtch=2 -> DTCH: ,OK
  phone    touch 100 200 down
  expect   DTCH:100,200,100,200,OK
  phone    touch 110 220 move
  expect   DTCH:110,220,110,220,OK
  phone    touch 110 220 up
  expect   DTCH:110,220,110,220,OK

press and release, with a leading 1 and 0
  #:
  send     dtch=3 -> DTCH: ,OK
  phone    touch 7 8 down
  expect   DTCH:1,7,8,7,8,OK
  phone    touch 9 10 move | touch 9 10 up
  expect   DTCH:0,9,10,9,10,OK

a trace with an interval leaves out what comes too soon
  send     dtch=2,1000 -> DTCH: ,OK
  phone    clock hold | touch 1 1 down
  after    40 -> DTCH:1,1,1,1,OK
  phone    touch 2 2 move | clock +900 | touch 3 3 move | clock +200 | touch 4 4 move
  after    40 -> DTCH:4,4,4,4,OK
  phone    clock run

at most one event each 20 ms
  send     dtch=2,5 -> DTCH: ,OK
  phone    clock hold | touch 1 1 down | touch 2 2 move | touch 3 3 move | clock +20
  # the first event, in the place where the finger is by now
  expect   DTCH:3,3,3,3,OK
  send     dtch=?
  expect   DTCH:Test active touch device,DTCH:mode(0=off, 1=touch tap on, 2=touch trace on, 3=touch detect press/release, interval=1-1000),dtch      (0-3)[,(1-1000)]                                  test(mode,interval),OK
  phone    clock run
  expect   DTCH:3,3,3,3,OK
  expect   DTCH:3,3,3,3,OK

starting twice does not report twice, after the end nothing is reported, and there is no mode above 3
  send     dtch=1 | dtch=1 -> DTCH: ,OK
  phone    touch 20 30 tap
  expect   DTCH:20,30,20,30,OK
  phone    clock +100
  send     dtch=0 -> DTCH: ,OK
  phone    touch 20 30 tap | clock +100
  send     dtch=4 -> DTCH: ,SYNTAX

a driver that can't be loaded
  conf     without /system/modules/max1187x.ko
  phone    speed 100
  send     dtch=1 -> DTCH: ,ERROR

a driver whose node comes up late is asked for it six times
  phone    fail open /dev/max1187x_ctrl 5
  send     dtch=1 -> DTCH: ,OK
  phone    fail off -> 0 faults were never reached

each report leaves a small cross on the screen
  send     lcdl=1,0 -> LCDL: ,OK
  send     dtch=1 -> DTCH: ,OK
  phone    touch 540 960 tap
  expect   DTCH:540,960,540,960,OK
  phone    clock +100
  # 2 by 4 from (539, 958), 4 by 2 from (538, 959)
  phone    pixel 539 957 -> 000000 | pixel 538 958 -> 000000 | pixel 539 958 -> FFFF7F
  phone    pixel 540 961 -> FFFF7F | pixel 538 959 -> FFFF7F | pixel 541 960 -> FFFF7F
  phone    pixel 542 960 -> 000000 | pixel 541 961 -> 000000 | pixel 540 962 -> 000000
  # in a corner it begins at 0
  phone    touch 0 1 tap
  expect   DTCH:0,1,0,1,OK
  phone    clock +100 | pixel 1 3 -> FFFF7F | pixel 3 1 -> FFFF7F | pixel 2 2 -> 000000
  phone    touch 1079 1919 tap
  expect   DTCH:1079,1919,1079,1919,OK
  phone    clock +100
  phone    pixel 1079 1919 -> FFFF7F | pixel 1077 1918 -> FFFF7F | pixel 1077 1917 -> 000000
