#: Starts a low-energy receiver test.
#: bler[=CH] | channel 0 to 0x27; 0 when it is left out
#: The answer is one blank in all cases. `bles` ends the test.

the value is the command's one byte, a missing one 0
  #:
  send     bler=0x11 -> BLER: ,OK
  phone    hci recent -> 01030C00\n011D200111
  send     bler? -> BLER: ,OK
  phone    hci last -> 011D200100

the controller judges the channel, and two values are too many
  send     bler=0x28 -> BLER: ,ERROR
  send     bler=1,2 -> bler      (0x00-0x27)                                       LE rx(ch),SYNTAX
  phone    hci last -> 011D200128
  send     bler=? -> BLER:Bluetooth Low Energy Reciever Test,bler      (0x00-0x27)                                       LE rx(ch),OK
