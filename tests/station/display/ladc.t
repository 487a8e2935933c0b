# The LED driver's converter, which this phone lacks.

no reading
  send     ladc=0
  expect   LADC: ,ERROR
  send     ladc=1,0x1f
  expect   LADC: ,ERROR

modes are 0 and 1, values one or two
  send     ladc=2
  expect   LADC: ,SYNTAX
  send     ladc
  expect   LADC: ,SYNTAX
  send     ladc?
  expect   SYNTAX
