#: Checks the supply of the contactless SIM, which hangs on the second chip.
#: nfct=0 | 1 when the SIM has its supply while the check lasts, 0 when it hasn't; 100 ms. Another value, or none, is
#:   `SYNTAX` without a line; the PN65 has no such check: `NOT FOUND`
#: nfct? | the help, as `nfct=?`

with a secure element and without
  send     nfct=0 -> NFCT: ,NOT FOUND
  send     nfsl=2 -> NFSL: ,OK
  #:
  send     nfct=0 -> NFCT:1,OK
  phone    gpio 97 -> 0
  phone    swp off
  send     nfct=0 -> NFCT:0,OK
  send     nfct=1 | nfct -> SYNTAX
  send     nfct? -> NFCT:NFC SIMVDD Check,OK
  send     nfct=? -> NFCT:NFC SIMVDD Check,nfct      (0-1)                                             NFC SIMVDD Check,OK
  phone    fail ioctl /dev/tamiro_ctrl
  send     nfct=0 -> NFCT: ,ERROR
  phone    fail open /dev/tamiro_ctrl
  send     nfct=0 -> NFCT: ,ERROR

the supply is there only between the two requests
  send     nfsl=2 -> NFSL: ,OK
  phone    clock hold
  send     nfct=0
  phone    clock +50 | gpio 97 -> 1
  phone    clock run
  expect   NFCT:1,OK
  phone    gpio 97 -> 0
