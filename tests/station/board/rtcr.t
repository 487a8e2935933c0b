#: Reads the real time clock.
#: rtcr | `YEAR,MONTH,DAY,HOUR,MINUTE,SECOND`, decimal, the year in full; `ERROR` behind one blank when the clock
#:   doesn't answer. Values are passed over

the clock runs with the phone's time
  phone    clock hold
  send     rtcw=2016,2,28,23,59,58 -> RTCW: ,OK
  #:
  send     rtcr -> RTCR:2016,2,28,23,59,58,OK
  phone    clock +2000
  send     rtcr? | rtcr=whatever -> RTCR:2016,2,29,0,0,0,OK

a clock that doesn't open or answer is an error
  phone    fail open /dev/rtc0
  send     rtcr -> RTCR: ,ERROR
  phone    fail ioctl /dev/rtc0
  send     rtcr -> RTCR: ,ERROR

the help is one line
  send     rtcr=? -> RTCR:Read RTC Date Time,rtcr                                                        rtcr(),OK
