#: Reads a parameter of the second contactless chip, which wants `nfpc=1,1` before.
#: nfpr=NUMBER | the value of the last pair with that number, in hexadecimal; 0x0 when there is none. `ERROR` on the PN65

the last pair with the number counts
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfpr=5 -> NFPR: ,ERROR
  send     nfpc=1,1 -> NFPC: ,OK
  #:
  send     nfpr=5 -> NFPR:0x35,OK
  send     nfpr=14 -> NFPR:0x15,OK
  send     nfpr=99 -> NFPR:0x0,OK
  phone    tamiro block 05110522060000000000000000000000000000000000000000000577C33C
  send     nfpr=5 -> NFPR:0x77,OK
  # a block that is a byte too short
  phone    tamiro F802 F90200\*29{11} 1
  send     nfpr=5 -> NFPR: ,ERROR
  phone    tamiro F802 F90202\*30{11} 1
  send     nfpr=5 -> NFPR: ,ERROR
  send     nfpr -> NFPR:Too few parameters,ERROR
  send     nfpr=?1 -> NFPR:NFC Read RF parameter,nfpr      (0-0xFFFF)                                        NFC Read RF parameter,OK

the first chip has none
  send     nfpr=1 -> NFPR:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  send     nfpr=1 -> NFPR: ,ERROR
