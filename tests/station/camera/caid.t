#: What the memory of the camera module says of it.
#: caid=1[,STYLE] | the module's three letters: STYLE 0 in hexadecimal, 1 as text
#: caid=2[,STYLE] | year, month, day, hour, minute, second of its making and two bytes more: STYLE 0 in hexadecimal, 1
#:   as date and time
#: `ERROR` with no answer when the memory can't be read; wrong values are `SYNTAX` behind the bare name.

both kinds in both styles
  send     caml=1 -> CAML:,OK
  #:
  send     caid=1 -> CAID:0x4d,0x5a,0x31,OK
  send     caid=1,1 -> CAID:MZ1,OK
  send     caid=2 -> CAID:0xd,0x8,0x15,0xe,0x25,0x33,0x24,0x7,OK
  #:
  send     caid=2,1 -> CAID:13/08/21 14:37:51 0x24 0x07,OK
  send     caml=2 -> CAML:,OK
  send     caid?1,1 -> CAID:SZ2,OK
  send     caid=2,1 -> CAID:13/07/30 09:16:02 0x5C 0x13,OK

a memory that can't be read, and wrong values
  send     caid=1 -> ERROR
  send     caml=1 -> CAML:,OK
  phone    fail drns_get_parameter 0x2A 1
  send     caid=1 | caid=0 -> ERROR
  send     caid=3 | caid=1,2 | caid -> CAID:,SYNTAX
  send     caid=?1
  expect   CAID:read camera module eeprom/sensor info,caid      (0-1),[(0-1)]                                     read data ID info from camera mo,OK
