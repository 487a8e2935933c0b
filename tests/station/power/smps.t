#: Switches the supply rail of one of the processors.
#: smps=RAIL,ON | RAIL 0 to 3, ON 1 on, 0 off. The verdict is the answer, and the status `OK` in either case: `0`
#:   switched, `1` not

a rail goes off and on
  #:
  send     smps=2,0 -> SMPS:0,OK
  file     /sys/kernel/debug/regulator/krait2/enable -> 0
  send     smps=2,1 -> SMPS:0,OK
  file     /sys/kernel/debug/regulator/krait2/enable -> 1
  # on sets the level that it has
  file     /sys/kernel/debug/regulator/krait2/voltage -> 935000 935000

a rail that isn't there, or can't be written, isn't switched
  strange  any
  #: There is no such rail:
  send     smps=7,0 -> SMPS:1,OK
  phone    fail write /sys/kernel/debug/regulator/krait0/enable
  send     smps=0,1 -> SMPS:1,OK

two values, and 0 or 1 for the second
  send     smps | smps=1 -> SYNTAX
  send     smps=? -> SMPS:smps cpu regulator control test,smps      (0-9),(0-1)                                       smps(reg,op),OK
