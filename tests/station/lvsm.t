# The VSYNC record is unit 60220, 0xEB3C, of the main store: high, low, low, high byte.

a measurement is shown
  phone    vsync 16667
  send     lvsm
  expect   LVSM: ,ERROR
  # 16667 = 0x411B; the measurement needs an active screen
  send     lcdl=1,0
  expect   LCDL: ,OK
  send     lvsm
  expect   LVSM:0x411B,OK

a measurement is stored, its low 16 bits, and read back
  send     lcdl=1,0
  expect   LCDL: ,OK
  send     tact=1
  expect   TACT:,OK
  phone    vsync 0xABCD1234
  send     lvsm=1
  expect   LVSM:0xABCD1234,OK
  phone    unit 0xEB3C -> 12343412
  send     lvsm=2
  expect   LVSM:0x1234,OK

with the store closed nothing is stored or read
  send     lcdl=1,0
  expect   LCDL: ,OK
  phone    unit 0xEB3C 412B2B41
  send     lvsm=1
  expect   LVSM: ,ERROR
  send     lvsm=2
  expect   LVSM: ,ERROR
  phone    unit 0xEB3C -> 412B2B41

a record must mirror and have four bytes
  send     tact=1
  expect   TACT:,OK
  phone    unit 0xEB3C 412B2B41
  send     lvsm=2
  expect   LVSM:0x412B,OK
  phone    unit 0xEB3C 412B2B40
  send     lvsm=2
  expect   LVSM: ,ERROR
  phone    unit 0xEB3C 412B2B4100
  send     lvsm=2
  expect   LVSM: ,ERROR
  phone    unit 0xEB3C -
  send     lvsm=2
  expect   LVSM: ,ERROR

other modes are refused, and the help
  send     lvsm=3
  expect   LVSM: ,SYNTAX
  send     lvsm=?
  expect   LVSM:Measure LCD VSYNC period.,lvsm      [(1-2)]                                           LCD VSYNC Measurement,OK

a phone that can't measure says so
  conf     without /dev/vsync_measurement
  send     lcdl=1,0
  expect   LCDL: ,OK
  send     lvsm
  expect   LVSM: ,ERROR
