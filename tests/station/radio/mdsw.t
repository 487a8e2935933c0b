#: Reads or sets the modem's switch, which this phone doesn't have.
#: mdsw[=0] | one blank and `ERROR` on this phone
#: mdsw=1,VALUE | likewise
#: Other counts of values are one blank and `SYNTAX`.

reading and setting it are errors, anything else is one of syntax
  #:
  send     mdsw
  expect   MDSW: ,ERROR
  send     mdsw?0
  expect   MDSW: ,ERROR
  send     mdsw=1,2
  expect   MDSW: ,ERROR
  send     mdsw=0,1
  expect   MDSW: ,SYNTAX
  send     mdsw=1
  expect   MDSW: ,SYNTAX
  send     mdsw=2,1
  expect   MDSW: ,SYNTAX
  send     mdsw=1,2,3
  expect   MDSW: ,SYNTAX
  send     mdsw=?
  expect   MDSW:Modem switch,mdsw      (0,1),(0-2)                                       modem_switch(val),OK
