#: Writes a parameter of the second contactless chip, which wants `nfpc=1,1` before.
#: nfpw=NUMBER,VALUE | into the first pair that has the number or is free; when all 14 are taken the block is written as
#:   it was. Answers with one blank; `ERROR` on the PN65

a number finds its pair or a free one
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfpw=2,0x99 -> NFPW: ,ERROR
  send     nfpc=1,1 -> NFPC: ,OK
  #:
  send     nfpw=2,0x99 -> NFPW: ,OK
  send     nfpw=0x63,7 -> NFPW: ,OK
  phone    tamiro block -> 01110299053506460E15630700000000000000000000000000000000C33C
  # the first of both counts
  phone    tamiro block 01110000021202130E15\*20{00}
  send     nfpw=2,0x88 -> NFPW: ,OK
  phone    tamiro block -> 01110288021202130E15\*20{00}
  phone    tamiro F801 F90103 1
  send     nfpw=2,0x11 -> NFPW: ,ERROR
  send     nfpw=1 -> NFPW:Too few parameters,ERROR
  send     nfpw=1,2,3 -> NFPW:Too many parameters,ERROR
  send     nfpw=?1,2 -> NFPW:NFC Write RF parameter,nfpw      (0-0xFFFF),(0-0xFF)                               NFC Write RF parameter,OK

with 14 pairs taken nothing changes, and the block is written all the same
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfpc=1,1 -> NFPC: ,OK
  phone    tamiro block 0111022203330444055506660777088809990A110B220C330D440E55C33C
  send     nfpw=15,1 -> NFPW: ,OK
  phone    tamiro block -> 0111022203330444055506660777088809990A110B220C330D440E55C33C
  phone    tamiro recent 1 -> 00FA21F8010111022203330444055506660777088809990A110B220C330D440E55C33C23B900

the first chip has none
  send     nfpw=1,2 -> NFPW:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  send     nfpw=1,2 -> NFPW: ,ERROR
