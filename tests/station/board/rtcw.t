#: Sets the real time clock.
#: rtcw=YEAR,MONTH,DAY,HOUR,MINUTE,SECOND | six numbers, the year in full (of it 16 bits count, of the others 8), the
#:   month from 1, the hour from 0 to 23. Answers with one blank; a date that there isn't is `ERROR`

a date that is set is the clock's from then on
  phone    clock hold
  #:
  send     rtcw=2013,7,29,20,0,36 -> RTCW: ,OK
  send     rtcr -> RTCR:2013,7,29,20,0,36,OK
  # of the values more than a byte, or of the year more than two, is cut off: 263 = 256 + 7, 67549 = 65536 + 2013
  send     rtcw=67549,263,29,20,0,36 -> RTCW: ,OK
  send     rtcr -> RTCR:2013,7,29,20,0,36,OK

a date that isn't one is refused, and the clock stays
  phone    clock hold
  send     rtcw=2013,7,29,20,0,36 -> RTCW: ,OK
  #: There was no 29 February in 2013:
  send     rtcw=2013,2,29,20,0,36 -> RTCW: ,ERROR
  send     rtcw=2013,13,1,20,0,36 -> RTCW: ,ERROR
  send     rtcr -> RTCR:2013,7,29,20,0,36,OK

six values are wanted, for the help too
  send     rtcw | rtcw=2013,7,29,20,0 -> RTCW: ,SYNTAX
  send     rtcw=? -> RTCW: ,rtcw                                                        rtcw(year,month,day,hour,minutes,SYNTAX
  send     rtcw=?1,1,1,1,1,1 -> RTCW:Write RTC Date Time,
  +        rtcw                                                        rtcw(year,month,day,hour,minutes,OK

a clock that doesn't open or answer is an error
  phone    fail open /dev/rtc0
  send     rtcw=2013,7,29,20,0,36 -> RTCW: ,ERROR
