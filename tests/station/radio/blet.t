#: Starts a low-energy transmitter test.
#: blet[=CH[,LEN[,PLD]]] | channel 0 to 0x27, bytes of the payload 0 to 0x25, its pattern 0 to 7; left out they are 0
#: The answer is one blank in all cases. `bles` ends the test.

three values are the command's three bytes, missing ones 0
  #:
  send     blet=0x13,0x25,3 -> BLET: ,OK
  phone    hci recent -> 01030C00\n011E2003132503
  send     blet?5 -> BLET: ,OK
  phone    hci last -> 011E2003050000
  send     blet -> BLET: ,OK
  phone    hci last -> 011E2003000000

the controller judges the values
  send     blet=0x28,1,1 -> BLET: ,ERROR
  phone    hci last -> 011E2003280101
  send     blet=1,1,1 -> BLET: ,OK

a silent controller is an error, and the help is one line
  send     bthr -> BTHR: ,OK
  phone    hci 011E20 silent
  send     blet=1,1,1 -> BLET: ,ERROR
  send     blet=? -> BLET:Bluetooth Low Energy Transmitter Test,blet      (0x00-0x27),(0x00-0x25),(0x00-0x07)               LE tx(ch,len,pld),OK
