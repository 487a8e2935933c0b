#: Ends a low-energy test and tells how many packets came.
#: bles | the count, four hexadecimal digits; 0 behind a transmitter test. A failure shows 0 too

the count is that of a receiver test, 0 without one
  send     bles -> BLES:0x0000,OK
  phone    hci recent -> 01030C00\n011F2000
  send     bler=1 -> BLER: ,OK
  #:
  send     bles? -> BLES:0x05CF,OK
  send     bles -> BLES:0x0000,OK

a count that can't be had is 0 and an error, also when a byte of it is there
  send     bthr -> BTHR: ,OK
  phone    hci 011F20 040E05011F2000CF 1
  send     bles -> BLES:0x0000,ERROR
  phone    hci 011F20 040E06011F200CCF05 1
  send     bles -> BLES:0x0000,ERROR
  phone    hci 011F20 040E06011F200034F2 1
  send     bles -> BLES:0xF234,OK

it takes no value, and has a help
  send     bles=1 -> bles                                                        LE stop,SYNTAX
  send     bles=? -> BLES:Bluetooth Low Energy Stop,bles                                                        LE stop,OK
