#: Reads or sets the interrupt line of the second contactless chip.
#: nfit | its level, 0 or 1
#: nfit=LEVEL | sets it, 0 or 1, by the chip's register 9; the chip wants `nfpc=1,1` before. Answers with one blank
#: Another value is `SYNTAX`; on the PN65 both are `NOT FOUND`.

the line is read, and set by a register
  send     nfit
  expect   NFIT: ,NOT FOUND
  send     nfsl=2
  expect   NFSL: ,OK
  #:
  send     nfit
  expect   NFIT:0,OK
  phone    gpio 59 1
  send     nfit?
  expect   NFIT:1,OK
  send     nfit=1
  expect   NFIT: ,ERROR
  send     nfpu
  expect   NFPU: ,OK
  send     nfpc=1,1
  expect   NFPC: ,OK
  send     nfit=1
  expect   NFIT: ,OK
  phone    tamiro reg 9           -> 01
  send     nfit=0
  expect   NFIT: ,OK
  phone    tamiro reg 9           -> 00
  send     nfit=2
  expect   NFIT: ,SYNTAX
  send     nfit=?
  expect   NFIT:NFC (Tamiro) Get/Set INT status,nfit      (0-1)                                             NFC (Tamiro) Get/Set INT status,OK
