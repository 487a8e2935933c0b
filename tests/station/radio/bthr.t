#: Resets the Bluetooth controller.
#: bthr[=0] | resets the controller
#: bthr=1 | resets the chip, which this phone's doesn't do: `ERROR`
#: The answer is one blank in all cases.

a reset is one HCI command, and the start has made one before it
  #:
  send     bthr -> BTHR: ,OK
  phone    hci recent -> 01030C00\n01030C00
  send     bthr?0 -> BTHR: ,OK

a reset that the controller refuses, or doesn't hear of, is an error
  send     bthr -> BTHR: ,OK
  phone    hci 01030C00 040E0401030C0C 1
  send     bthr=0 -> BTHR: ,ERROR
  phone    fail hci_send_cmd hci0
  send     bthr=0 -> BTHR: ,ERROR
  phone    fail read hci0
  send     bthr=0 -> BTHR: ,ERROR
  phone    fail poll hci0 all
  send     bthr=0 -> BTHR: ,ERROR
  phone    fail off -> 0 faults were never reached
  send     bthr=0 -> BTHR: ,OK

the chip's reset fails, other numbers do nothing
  send     bthr=1 | bthr=2 | bthr=-1 -> BTHR: ,ERROR
  phone    hci recent -> none

the help is one line, and two values are too many
  send     bthr=? -> BTHR:Reset bluetooth,bthr      (0-1)                                             reset(),OK
  send     bthr=0,0 -> bthr      (0-1)                                             reset(),SYNTAX
