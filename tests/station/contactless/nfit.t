#: Reads or sets the interrupt line of the second contactless chip.
#: nfit | its level, 0 or 1
#: nfit=LEVEL | sets it, 0 or 1, by the chip's register 9; the chip wants `nfpc=1,1` before. Answers with one blank
#: Another value is `SYNTAX`; on the PN65 both are `NOT FOUND`.

the line is read, and set by a register
  send     nfit -> NFIT: ,NOT FOUND
  send     nfsl=2 -> NFSL: ,OK
  #:
  send     nfit -> NFIT:0,OK
  phone    gpio 59 1
  send     nfit? -> NFIT:1,OK
  send     nfit=1 -> NFIT: ,ERROR
  send     nfpu -> NFPU: ,OK
  send     nfpc=1,1 -> NFPC: ,OK
  send     nfit=1 -> NFIT: ,OK
  phone    tamiro reg 9 -> 01
  send     nfit=0 -> NFIT: ,OK
  phone    tamiro reg 9 -> 00
  send     nfit=2 -> NFIT: ,SYNTAX
  send     nfit=?
  expect   NFIT:NFC (Tamiro) Get/Set INT status,nfit      (0-1)                                             NFC (Tamiro) Get/Set INT status,OK
