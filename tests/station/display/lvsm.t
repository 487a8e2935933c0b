#: Measures the period of the panel's VSYNC signal.
#: lvsm[=0] | measures it: the driver's value, hexadecimal. `ERROR` when no screen is started (`lcdl`)
#: lvsm=1 | measures it and stores its low 16 bits in the persistent unit 60220; the store must be open (`tact=1`)
#: lvsm=2 | the stored value, hexadecimal; the store must be open. A unit of another form is `ERROR`
# The VSYNC record is unit 60220, 0xEB3C, of the main store: high, low, low, high byte.

a measurement needs an active screen; its low 16 bits are stored and read back while the store is open
  phone    vsync 16667
  send     lvsm -> LVSM: ,ERROR
  send     lcdl=1,0 -> LCDL: ,OK
  # 16667 = 0x411B
  #:
  send     lvsm -> LVSM:0x411B,OK
  phone    vsync 0xABCD1234
  send     lvsm=1 | lvsm=2 -> LVSM: ,ERROR
  phone    unit 0xEB3C -> 412B2B41
  send     tact=1 -> TACT:,OK
  send     lvsm=1 -> LVSM:0xABCD1234,OK
  phone    unit 0xEB3C -> 12343412
  send     lvsm=2 -> LVSM:0x1234,OK

a record must mirror and have four bytes
  send     tact=1 -> TACT:,OK
  phone    unit 0xEB3C 412B2B41
  send     lvsm=2 -> LVSM:0x412B,OK
  phone    unit 0xEB3C 412B2B40
  send     lvsm=2 -> LVSM: ,ERROR
  phone    unit 0xEB3C 412B2B4100
  send     lvsm=2 -> LVSM: ,ERROR
  phone    unit 0xEB3C -
  send     lvsm=2 -> LVSM: ,ERROR

other modes are refused, and the help
  send     lvsm=3 -> LVSM: ,SYNTAX
  send     lvsm=? -> LVSM:Measure LCD VSYNC period.,lvsm      [(1-2)]                                           LCD VSYNC Measurement,OK

a phone that can't measure says so
  conf     without /dev/vsync_measurement
  send     lcdl=1,0 -> LCDL: ,OK
  send     lvsm -> LVSM: ,ERROR
