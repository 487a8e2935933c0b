#: Reads the identity of the touch controller, stores it, and reads what is stored.
#: dtid[=0] | chip and configuration in one number, and the firmware's version: `0xCCCCGGGG,0xVVVVVVVV`
#: dtid=1 | vendor, chip, configuration and firmware, hexadecimal
#: dtid=2 | vendor, chip and configuration, which are also stored in their persistent unit
#: dtid=3 | the stored ones, in the same form; the panel isn't needed
#: dtid=4 | the configuration alone
#: What fails is `ERROR` with no line, another number `SYNTAX`.
# Who the touch controller is, and what the phone remembers of it.

the forms
  send     dtid | dtid=0 -> DTID:0x00740460,0x00010203,OK
  #:
  send     dtid?1 -> DTID:0x01,0x0074,0x0460,0x00010203,OK
  send     dtid=4 -> DTID:0x460,OK

it is stored, and read again without the panel
  send     dtid=2 -> DTID:0x01,0x0074,0x0460,OK
  send     dtld=0 -> DTLD: ,OK
  phone    fail /dev/max1187x_ctrl all
  send     dtid=3 -> DTID:0x01,0x0074,0x0460,OK
  send     dtid=1 -> ERROR

another panel
  conf     touch 2 0x75 0x0012 0xdeadbeef
  send     dtid -> DTID:0x00750012,0xDEADBEEF,OK
  send     dtid=1 -> DTID:0x02,0x0075,0x0012,0xDEADBEEF,OK

values out of range, and the help
  send     dtid=5 -> SYNTAX
  send     dtid=1,1 -> dtid      [(1-4)]                                           dtid(action),SYNTAX
  send     dtid=?
  expect   DTID:Read touch hardware info and write/read trim area,dtid      [(1-4)]                                           dtid(action),OK

a panel that doesn't tell
  send     dtld=1 -> DTLD: ,OK
  phone    fail ioctl /dev/max1187x_ctrl 1
  send     dtid -> ERROR
