#: Checks that the second contactless chip is the variant that this phone wants; it wants `nfpc=1,1` before.
#: nfvc=1 | the variant, 1 or 2, when it is the right one, else `ERROR`. A chip that doesn't know its variant is asked from
#:   its card side, and keeps it then in parameter 14, which it must still have behind a restart. The value isn't looked at.
#:   The PN65 has no variants: `NOT FOUND`

a new chip learns its variant, and knows it the next time
  send     nfsl=2 -> NFSL: ,OK
  send     nfvc=1 -> NFVC:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  send     nfvc=1 -> NFVC: ,ERROR
  send     nfpc=1,1 -> NFPC: ,OK
  #:
  send     nfvc=1 -> NFVC:1,OK
  # 15 of before and 1 above it: 01 01 0101
  phone    tamiro block -> 01110222053506460E55000000000000000000000000000000000000C33C
  phone    tamiro 00FFFF silent
  send     nfvc=7 -> NFVC:1,OK
  # a phone of the other type
  phone    gpio 25 1
  send     nfvc=1 -> NFVC: ,ERROR
  phone    tamiro block 0E95\*28{00}
  send     nfvc=1 -> NFVC:2,OK
  send     nfvc -> NFVC:Too few parameters,ERROR
  send     nfvc=?1 -> NFVC:NFC (Tamiro) variant check,nfvc      (1)                                               NFC (Tamiro) variant check,OK

a variant that isn't told, isn't kept or is the wrong one
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfpc=1,1 -> NFPC: ,OK
  phone    tamiro 02 03012E4C5A68768492010014 1
  send     nfvc=1 -> NFVC: ,ERROR
  phone    tamiro 02 03012E4C5A68768492010115 1
  send     nfvc=1 -> NFVC: ,ERROR
  phone    tamiro 02 03012E4C5A68768492010214 1
  send     nfvc=1 -> NFVC: ,ERROR
  phone    tamiro block -> 01110222053506460E15000000000000000000000000000000000000C33C
  phone    tamiro F801 F90100 1
  send     nfvc=1 -> NFVC: ,ERROR
  send     nfvc=1 -> NFVC:1,OK

the first chip has none
  send     nfpu -> NFPU: ,OK
  send     nfvc=1 -> NFVC: ,NOT FOUND
