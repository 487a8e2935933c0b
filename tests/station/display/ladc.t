#: Reads the converter of an LED driver, which this phone lacks.
#: ladc=MODE[,CHANNEL] | MODE 0 the code, 1 mV; always `ERROR` behind one blank. Another MODE is `SYNTAX`

no reading
  #:
  send     ladc=0 -> LADC: ,ERROR
  send     ladc=1,0x1f -> LADC: ,ERROR

modes are 0 and 1, values one or two
  send     ladc=2 | ladc -> LADC: ,SYNTAX
  send     ladc? -> SYNTAX
