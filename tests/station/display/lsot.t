#: Tests the LEDs of the power chip for shorts and open circuits.
#: lsot | a bit for each faulty one, hexadecimal with four digits: 0x0001 the first, 0x0004 the third; `0x0000` when
#:   all are good

a bit for each faulty LED
  phone    led 1 short
  #:
  send     lsot -> LSOT:0x0001,OK
  phone    led 1 good | led 3 open
  send     lsot? -> LSOT:0x0004,OK
  phone    led 2 short
  # bits 1 and 2
  send     lsot -> LSOT:0x0006,OK

afterwards no LED is selected and the detection reports nothing
  send     lsot -> LSOT:0x0000,OK
  phone    spmi 1d848 -> 00 | spmi 1d815 -> 00 | spmi 1d84d -> 02

a chip that can't be asked is told, and the test is ended all the same
  phone    led 2 open | fail spmi 1D818 1
  send     lsot -> LSOT: ,ERROR
  phone    spmi 1d848 -> 00 | spmi 1d815 -> 00
  send     lsot -> LSOT:0x0002,OK

values and help
  send     lsot=1 -> lsot                                                        LSOT(),SYNTAX
  send     lsot=? -> LSOT:LED short/open test,lsot                                                        LSOT(),OK
