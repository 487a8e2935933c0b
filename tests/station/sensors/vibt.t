#: Measures the vibration motor on a thread of its own, which reports later: `VIBT:`, a text with a line feed, the line
#: term, no status. This product has nothing to measure with: each measurement runs the motor and fails.
#: vibt=1[,LEVEL] | one measurement at LEVEL mV, -1 (3000 mV) unless given; 0 leaves the motor as it is
#: vibt=2[,LEVEL] | measures again and again, half a second between
#: vibt=3 | stops that, behind the measurement that runs
#: vibt=4 | the last measurement that succeeded: frequency in Hz and the amplitudes of x, y and z; zeros before the first
#: `vibt=1` and `vibt=2` answer at once, without a line. A test that is still at work, or none to stop, is `ERROR`, as is
#: any other form.

one measurement answers at once and reports when it is done
  phone    clock hold
  send     vibt=1 -> OK
  phone    idle
  file     /sys/hvt/hvt-vib/vib -> 3000
  # while it is at work there is no other
  send     vibt=1 | vibt=2 | vibt=3 -> ERROR
  phone    clock +9
  file     /sys/hvt/hvt-vib/vib -> 3000
  phone    clock +1
  read     VIBT:viberator test FAILED!\n,
  file     /sys/hvt/hvt-vib/vib -> 0
  #:
  send     vibt=4 -> VIBT:freq=0.000000      amplX=0.000000       amplY=0.000000       amplZ=0.000000,OK
  send     vibt=1,2000 -> OK
  phone    idle
  file     /sys/hvt/hvt-vib/vib -> 2000
  phone    clock +10
  read     VIBT:viberator test FAILED!\n,
  phone    files vibt ->

at level 0 the motor isn't started, but switched off behind a capture that failed
  phone    clock hold
  send     vibc=1 -> VIBC: ,OK
  send     vibt=1,0 -> OK
  phone    idle
  file     /sys/hvt/hvt-vib/vib -> 3000
  phone    clock +10
  read     VIBT:viberator test FAILED!\n,
  file     /sys/hvt/hvt-vib/vib -> 0

a repeating test measures every half second until it is stopped
  phone    clock hold
  send     vibt=2,1500 -> OK
  phone    idle | clock +10
  read     VIBT:viberator test FAILED!\n,
  phone    clock +499
  file     /sys/hvt/hvt-vib/vib -> 0
  phone    clock +1
  file     /sys/hvt/hvt-vib/vib -> 1500
  send     vibt=1 -> ERROR
  # the measurement that runs is completed before the answer, and nothing comes behind it
  send     vibt=3
  phone    clock +510
  read     VIBT:viberator test FAILED!\n,OK\r\n
  send     vibt=3 -> ERROR
  phone    clock +2000
  send     vibt=1 -> OK
  phone    idle | clock +10
  read     VIBT:viberator test FAILED!\n,

a stop right behind the start
  phone    clock hold
  send     vibt=2 -> OK
  phone    idle
  send     vibt=3
  phone    clock +510
  read     VIBT:viberator test FAILED!\n,OK\r\n

the report has the line term of the moment and the name's case
  phone    clock hold
  send     s3=7c,d -> S3:0x7c, 0x0d|OK
  send     case=1 -> case:true|OK
  send     vibt=1 -> OK
  phone    idle | clock +10
  read     vibt:viberator test FAILED!\n|

without a result file the test ends silently; a repeating one counts as running until it is stopped
  phone    fail open /system/hvtdebug/vibt_result.txt all
  send     vibt=1 -> OK
  phone    idle
  send     vibt=2 -> OK
  phone    idle
  file     /sys/hvt/hvt-vib/vib -> 0\n
  send     vibt=1 | vibt=2 -> ERROR
  send     vibt=3 -> OK
  send     vibt=3 -> ERROR
  send     vibt=1 -> OK
  phone    idle

a motor that can't be switched fails the measurement at once
  conf     without /sys/hvt/hvt-vib/vib
  strange  any
  phone    clock hold
  # so that the answer comes before the report
  phone    fail open /system/hvtdebug/vibt_result.txt slow 10
  send     vibt=1 -> OK
  phone    idle | clock +10
  read     VIBT:viberator test FAILED!\n,

the reports of a test that the menu started don't go to the station
  write    /system/scripts/start_korvat.lua local status, text = qat("vibt=1")
  + \nlocal out = io.open("/data/out", "w")
  + \nout:write(status, "|", tostring(text))
  + \nout:close()
  phone    key 116 tap | clock +140 | idle
  file     /data/out -> OK|nil
  phone    clock +20 | idle
  file     /sys/hvt/hvt-vib/vib -> 0

lines that are none, and the help
  send     vibt | vibt=0 | vibt=5 | vibt=1,2,3 -> ERROR
  send     vibt? -> VIBT:Test the amplitude & frequency of Vibrator,OK
  send     vibt=? -> VIBT:Test the amplitude & frequency of Vibrator,
  +        vibt      (1-4)[,(0-65535)]                                 vibr test,OK
