#: Lists and checks the memory of the camera module.
#: crom[=0] | the 2048 bytes in hexadecimal, 16 a line, each line ended by CR LF, then the bare name
#: crom=1 | 0 when the memory's check is good, 1 when it is bad or can't be read
#: `ERROR` behind the bare name when it can't be read.

the check
  send     crom=1 -> CROM:1,OK
  send     caml=1 -> CAML:,OK
  #:
  send     crom=1 -> CROM:0,OK
  phone    camera 1 eeprom bad
  send     crom?1 -> CROM:1,OK

a memory that can't be read, and wrong values
  send     crom -> CROM:,ERROR
  send     caml=1 -> CAML:,OK
  phone    fail drns_get_parameter 0x2A 1
  send     crom=0 -> CROM:,ERROR
  send     crom=2 -> CROM:,SYNTAX
  send     crom=?
  expect   CROM:Dump and check eeprom in camera module.,crom      (0-1)                                             dump and check eeprom,OK
  send     crom=0,1 -> crom      (0-1)                                             dump and check eeprom,SYNTAX
