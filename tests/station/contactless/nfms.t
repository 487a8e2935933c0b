#: Leaves the PN65 in a mode of its own; it must be powered down.
#: nfms[=MODE] | a short start, the mode written and read back, and the chip is off. 0, which is taken when it is left
#:   out, and 1. Answers with one blank; `ERROR` when the chip is up or an exchange fails. A chip that tells another mode
#:   than it was given stays on, and that is `OK`. The second chip has no modes: `NOT FOUND`

the mode is the other way round in the register
  #:
  send     nfms=1 -> NFMS: ,OK
  phone    pn65 reg 9EAA -> 00 | gpio 558 -> 1
  send     nfms -> NFMS: ,OK
  phone    pn65 reg 9EAA -> 01
  send     nfid=1 -> NFID:NFC is not yet powered up,ERROR
  send     nfms=? -> NFMS:NFC Mode Switch,nfms      (0-1)                                             NFC Mode Switch,OK
  send     nfsl=2 -> NFSL: ,OK
  send     nfms=1 -> NFMS: ,NOT FOUND

a chip that is up refuses, with no frame
  send     nfpu -> NFPU: ,OK
  phone    pn65 recent 1 -> 03C407A5
  send     nfms=1 -> NFMS: ,ERROR
  phone    pn65 recent 1 -> 03C407A5

a mode that isn't confirmed leaves the chip on, and the next start begins anew
  phone    speed 50 | pn65 823E009EAA 828055 1
  send     nfms=1 -> NFMS: ,OK
  phone    gpio 558 -> 0
  send     nfpu -> NFPU: ,OK
  send     nfpd -> NFPD: ,OK
  phone    pn65 823E009EAA silent 1
  send     nfms=1 -> NFMS: ,ERROR
  phone    gpio 558 -> 0
  phone    pn65 823F009EAA silent
  send     nfms=1 -> NFMS: ,ERROR
  phone    pn65 off
  send     nfms=1 -> NFMS: ,OK
  phone    gpio 558 -> 1
