#: Writes a register of the current contactless chip.
#: nfrw=REGISTER,VALUE | the low 8 bits of VALUE; the numbers are those of `nfrr`. Answers with one blank

the value arrives
  send     nfpu -> NFPU: ,OK
  #:
  send     nfrw=0x1234,0x56 -> NFRW: ,OK
  phone    pn65 reg 1234 -> 56
  send     nfrw=0x9EB4,0x1A7 -> NFRW: ,OK
  phone    pn65 reg 9EB4 -> A7
  phone    speed 100 | pn65 823F silent 1
  send     nfrw=0x1234,1 -> NFRW: ,ERROR
  send     nfrw=1 -> NFRW:Too few parameters,ERROR
  send     nfrw=1,2,3 -> NFRW:Too many parameters,ERROR
  send     nfrw=?1,2 -> NFRW:NFC Write RF register,nfrw      (0-0xFFFF),(0-0xFFFF)                             NFC Write RF register,OK

the second chip's registers have 8 bits
  send     nfsl=2 -> NFSL: ,OK
  send     nfrw=1,2 -> NFRW:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  send     nfpc=1,1 -> NFPC: ,OK
  send     nfrw=0x115,0x77 -> NFRW: ,OK
  phone    tamiro reg 15 -> 77
  phone    tamiro F803 F90301 1
  send     nfrw=0x15,0x78 -> NFRW: ,ERROR
