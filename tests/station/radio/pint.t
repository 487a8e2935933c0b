#: Tests the pins between the Bluetooth chip and its neighbours.
#: pint | three results; 0xFF is one that the chip didn't give

three results come behind their tags
  #:
  send     pint -> PINT:0x1A,0x2B,0x3C,OK
  phone    hci recent -> 01030C00\n010CFC010B

a result without its tag stays 255, and so do all of an answer that failed or is too short
  send     bthr -> BTHR: ,OK
  phone    hci 010CFC 040E0F010CFC000B0302010004020005FE00 1
  send     pint? -> PINT:0x1,0xFF,0xFF,OK
  phone    hci 010CFC 040E0F010CFC000B0300010003020004FE00 1
  send     pint -> PINT:0xFF,0x2,0xFE,OK
  phone    hci 010CFC 040E0F010CFC010B0302010003020004FF00 1
  send     pint -> PINT:0xFF,0xFF,0xFF,ERROR
  phone    hci 010CFC 040E0E010CFC000B0302010003020004FF 1
  send     pint -> PINT:0xFF,0xFF,0xFF,ERROR
  phone    hci 010CFC silent 1
  send     pint -> PINT:0xFF,0xFF,0xFF,ERROR

it takes no value, and has a help
  send     pint=1 -> pint                                                        Pin Connectivity Test,SYNTAX
  send     pint=? -> PINT:Pin Connectivity Test,pint                                                        Pin Connectivity Test,OK
