#: Gives a short pulse on the second contactless chip's lock line.
#: nflt | low, high and low again, 1 ms each. Answers with one blank; the PN65 has none: `NOT FOUND`

low, high, low
  send     nflt -> NFLT: ,NOT FOUND
  send     nfsl=2 -> NFSL: ,OK
  #:
  send     nflt -> NFLT: ,OK
  phone    gpio 568 -> 0
  phone    fail write /dev/gpio568
  send     nflt -> NFLT: ,ERROR
  send     nflt=? -> NFLT:NFC Lock Toggle,nflt                                                        NFC Lock Toggle,OK

the pulse is a millisecond high
  send     nfsl=2 -> NFSL: ,OK
  phone    clock hold
  send     nflt
  phone    clock +1 | gpio 568 -> 1
  phone    clock run
  expect   NFLT: ,OK
  phone    gpio 568 -> 0
