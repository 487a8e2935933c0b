#: Reads or sets the modem's switch, which this phone doesn't have.
#: mdsw[=0] | one blank and `ERROR` on this phone
#: mdsw=1,VALUE | likewise
#: Other counts of values are one blank and `SYNTAX`.

reading and setting it are errors, anything else is one of syntax
  #:
  send     mdsw -> MDSW: ,ERROR
  send     mdsw?0 | mdsw=1,2 -> MDSW: ,ERROR
  send     mdsw=0,1 | mdsw=1 | mdsw=2,1 | mdsw=1,2,3 -> MDSW: ,SYNTAX
  send     mdsw=? -> MDSW:Modem switch,mdsw      (0,1),(0-2)                                       modem_switch(val),OK
