#: Puts the Bluetooth controller into its test mode, in which a tester on the air drives it.
#: bttm[=1] | scanning on, a filter that accepts connections, test mode on
#: bttm=0 | resets the controller; `OK` whatever comes of it
#: The answer is one blank in all cases.

test mode is scanning, a filter that accepts connections, and the mode itself
  #:
  send     bttm -> BTTM: ,OK
  phone    hci recent -> 01030C00\n011A0C0103\n01050C03020002\n01031800
  send     bttm?1 -> BTTM: ,OK

the first of the three commands that fails is the last
  send     bthr -> BTHR: ,OK
  phone    hci 01050C 040E0401050C12
  send     bttm=1 -> BTTM: ,ERROR
  phone    hci last -> 01050C03020002
  phone    hci 011A0C 040E04011A0C01
  send     bttm=1 -> BTTM: ,ERROR
  phone    hci last -> 011A0C0103
  phone    hci off | hci 010318 040E0401031801 1
  send     bttm=1 -> BTTM: ,ERROR
  send     bttm=1 -> BTTM: ,OK

switching off resets the controller, whatever comes of it; the next command counts up and sends nothing by the way
  send     bttm -> BTTM: ,OK
  phone    hci 01030C00 silent 1
  #:
  send     bttm=0 -> BTTM: ,OK
  phone    hci last -> 01030C00
  send     btid -> BTID:BTFM 4.1.7 KORVAT,OK
  phone    hci recent -> 01030C00\n011A0C0103\n01050C03020002\n01031800\n01030C00\n010FFC00
  # one insmod for all of it
  phone    shell 1 -> 0 hciconfig hci0 up

switching off as the first command finishes the start that it began, and counts it down again
  send     bttm=0 -> BTTM: ,OK
  # one reset ends the start, one is the stop
  phone    hci recent -> 01030C00\n01030C00
  send     bttm=0 -> BTTM: ,OK
  # counted up and down: a reset each time
  phone    hci recent -> 01030C00\n01030C00\n01030C00

switching off a controller that never came up is well too
  phone    fail insmod /system/modules/hci_smd.ko
  send     bttm=0 -> BTTM: ,OK
  phone    hci recent -> none

other values do nothing, and the help has two lines
  send     bttm=2 -> BTTM: ,ERROR
  phone    hci recent -> none
  send     bttm=? -> BTTM:Set test mode,BTTM:act(0=off 1=on),bttm      (0-1)                                             test(en),OK
