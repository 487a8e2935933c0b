#: Powers the current contactless chip down.
#: nfpd | the PN65 is told to sleep and has to confirm it; one that doesn't is `ERROR` and stays up. The second chip's
#:   lines go low in any case. Answers with one blank

the chip confirms its register before it is switched off
  send     nfpd -> NFPD:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  #:
  send     nfpd -> NFPD: ,OK
  phone    pn65 reg 9EAA -> 01 | gpio 558 -> 1
  send     nfpd=? -> NFPD:NFC Power Down,nfpd                                                        NFC Power Down,OK

a chip that doesn't confirm stays up
  send     nfpu -> NFPU: ,OK
  phone    pn65 823E009EAA 828000 1
  send     nfpd -> NFPD: ,ERROR
  phone    gpio 558 -> 0
  send     nfrr=0x9810 -> NFRR:0xBC,OK
  phone    fail write /dev/gpio558
  send     nfpd -> NFPD: ,ERROR
  send     nfpd -> NFPD: ,OK
