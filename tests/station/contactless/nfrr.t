#: Reads a register of the current contactless chip.
#: nfrr=REGISTER | its value in hexadecimal. The PN65 has registers of 16 bits; of the second chip's, which wants
#:   `nfpc=1,1` before, the low 8 bits of the number count. One blank and `ERROR` when the chip doesn't answer

registers of both chips, those that were never written too
  send     nfrr=1 -> NFRR:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  #:
  send     nfrr=0x9810 -> NFRR:0xBC,OK
  # 12 + 34
  send     nfrr=0x1234 -> NFRR:0x46,OK
  phone    pn65 reg 1234 A0
  send     nfrr?4660 -> NFRR:0xA0,OK
  phone    pn65 823E001234 828033 1
  send     nfrr=0x1234 -> NFRR:0x33,OK
  # an answer of five bytes has no value
  phone    pn65 823E001234 8283 1
  send     nfrr=0x1234 -> NFRR: ,ERROR
  send     nfsl=2 -> NFSL: ,OK
  send     nfrr=5 -> NFRR: ,ERROR

the second chip's registers
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfrr=5 -> NFRR: ,ERROR
  send     nfpc=1,1 -> NFPC: ,OK
  # 05 xor 5A
  send     nfrr=5 -> NFRR:0x5F,OK
  phone    tamiro F804 F9040155 1
  send     nfrr=5 -> NFRR: ,ERROR
  phone    tamiro F804 F90400 1
  send     nfrr=5 -> NFRR: ,ERROR
  phone    tamiro F804 silent 1
  send     nfrr=5 -> NFRR: ,ERROR
  # an answer that doesn't follow its acknowledgement is waited for ten rounds of 10 ms
  phone    tamiro F804 ack 1 | clock hold
  send     nfrr=5 after 150 -> NFRR: ,ERROR
  phone    clock run
  send     nfrr=?5 -> NFRR:NFC Read RF register,nfrr      (0-0xFFFF)                                        NFC Read RF register,OK
  send     nfrr -> NFRR:Too few parameters,ERROR

