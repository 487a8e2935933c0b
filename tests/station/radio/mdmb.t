#: Waits until the modem's processor is up.
#: mdmb[=0] | waits at most 40 s for it to come up, and then for its first answer, 40 s in all; 2 is the same
#: mdmb=1 | waits for it to come up alone
#: An empty line. One that is up and doesn't answer is `OK` all the same. The phone answers nothing else meanwhile.

a modem that is up is asked once, and must answer unless it was only to be kickstarted
  #:
  send     mdmb=1 -> MDMB:,OK
  phone    diag last -> none
  send     mdmb -> MDMB:,OK
  phone    diag last -> 4B0B00800000
  send     mdmb?2 -> MDMB:,OK
  phone    diag recent -> 4B0B00800000\n4B0B00800000
  # a descriptor of its own, given back
  phone    files diag -> /dev/diag

a modem that comes up is found at the next look, 50 ms apart
  phone    diag down | clock hold
  send     mdmb=1
  phone    clock +39000 | diag up
  after    60 -> MDMB:,OK
  phone    diag last -> none

one that doesn't in 40 seconds is an error
  phone    diag down | clock hold
  send     mdmb=1
  phone    clock +39900
  # nothing yet
  after    200 -> MDMB:,ERROR
  phone    diag last -> none

one that is up and silent is up; both waits together take 40 seconds and no more, and the channel's time-out comes back
  phone    diag 4B0B0080 silent | clock hold
  send     mdmb=0
  phone    clock +39800
  # attempts of 1 s, 50 ms apart, the last one begun before 40 s are over
  after    2000 -> MDMB:,OK
  phone    clock run | diag off | diag down | clock hold
  send     ftmc=75,11,14,0
  phone    clock +24000 | diag up
  after    10 -> FTMC:0x4b,0x0b,0x0e,0x00,OK

time spent in the first wait counts against the second
  phone    diag down | diag 4B0B0080 silent | clock hold
  send     mdmb
  phone    clock +35000 | diag up
  # 35 s and 5 s, and an attempt that was begun before
  after    6300 -> MDMB:,OK
  phone    clock run

a phone without the channel, or whose node can't be opened, is an error at once
  conf     without /dev/diag
  send     mdmb -> MDMB:,ERROR

a request that fails is asked again
  phone    fail diag 110 3 | fail open /dev/diag
  send     mdmb=1 -> MDMB:,ERROR
  send     mdmb=1 -> MDMB:,OK
  phone    fail off -> 0 faults were never reached

any number is a mode, and the help has four lines
  send     mdmb=-1 -> MDMB:,OK
  send     mdmb=1,2 -> mdmb      (0-2)                                             modem_boot(val),SYNTAX
  send     mdmb=? -> MDMB:Boots modem,MDMB:0: Waits for modem up,MDMB:1: Kickstarts MDM,MDMB:2: Brings GSS out of reset,
  + mdmb      (0-2)                                             modem_boot(val),OK
