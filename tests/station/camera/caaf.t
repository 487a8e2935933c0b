#: Focuses, and tells how the last focus run ended.
#: caaf=1 | focuses; returns when the run has ended, found or not, `ERROR` when it can't begin or has no end
#: caaf=0 | stops it
#: caaf | the state: 3 runs, 4 found, 5 not found, stopped or never begun
#: The two others answer with the bare name.

a run that finds the focus, one that doesn't, one with an error
  phone    speed 20
  send     caaf -> CAAF:5,OK
  send     caml=1 -> CAML:,OK
  #:
  send     caaf=1 -> CAAF:,OK
  #:
  send     caaf -> CAAF:4,OK
  phone    camera 1 param 16 -> 08000000
  phone    camera 1 focus bad
  send     caaf=1 -> CAAF:,OK
  send     caaf -> CAAF:5,OK
  phone    camera 1 focus good
  send     caaf=1 -> CAAF:,OK
  phone    camera 1 focus error
  send     caaf=1 -> CAAF:,OK
  send     caaf -> CAAF:5,OK
  phone    camera 1 focus good
  send     caaf=1 | caaf=0 -> CAAF:,OK
  send     caaf -> CAAF:5,OK

a run without end is given up after ten seconds
  phone    speed 100
  send     caml=1 -> CAML:,OK
  phone    fail drns_callback 0x6 1
  send     caaf=1 -> CAAF:,ERROR
  send     caaf -> CAAF:5,OK
  send     caaf=1 -> CAAF:,OK
  send     caaf -> CAAF:4,OK

a run that can't begin, and wrong values
  send     caml=1 -> CAML:,OK
  phone    fail drns_auto_lock 0x0 1
  send     caaf=1 -> CAAF:,ERROR
  send     caaf -> CAAF:5,OK
  send     caaf=2 -> SYNTAX
  send     caaf? -> OK
  send     caaf=1,1 -> caaf      (0-1)                                             auto focus operation,SYNTAX
