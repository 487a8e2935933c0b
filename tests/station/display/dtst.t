#: Runs the self tests of the touch controller.
#: dtst=KIND | KIND 1, 2 or 3: a self test, its first result in hexadecimal
#: dtst=5[,TEST] | five more self tests: TEST 0 (when left out) to 4
#: dtst=4[,MODE[,MIN[,MAX]]] | measures the panel. MODE 0, also when left out: the result, `0x00` when good. An odd
#:   MODE up to 11: the smallest and the largest value. An even one up to 12: the whole matrix, a row a line, values
#:   separated by commas, with line ends of its own. With MIN and MAX: the result against these limits, smallest and
#:   largest value
#: dtst=6[,MODE] | the driver's own tests: MODE 0 the result, 1 to 6 the matrix
#: dtst=7[,MODE] | the deep tests of the panel, MODE 0 to 10
#: Answers `DTST: ` and `ERROR` when a test fails to run, `ERROR` with no line when the panel's driver doesn't come
#: up.

the self tests are of five kinds and more, and only the first result counts
  # the phone's results: 0x10 and the kind
  #:
  send     dtst=1
  expect   DTST:0x10,OK
  send     dtst=2
  expect   DTST:0x12,OK
  send     dtst=3
  expect   DTST:0x11,OK
  send     dtst=5
  expect   DTST:0x17,OK
  send     dtst=5,1
  expect   DTST:0x13,OK
  send     dtst?5,4
  expect   DTST:0x16,OK
  send     dtst=5,5
  expect   DTST: ,SYNTAX
  phone    touchtest 2 0x1234 1 2
  send     dtst=2
  expect   DTST:0x1234,OK

a test that the driver refuses
  phone    touchtest 0 fail
  send     dtst=1
  expect   DTST: ,ERROR

a measurement: result, limits, or the whole matrix
  # 15 cells from 3000 + 20 for each mode on
  send     dtst=4
  expect   DTST:0x00,OK
  send     dtst=4,1
  # 3000 + 20 = 3020, 15 cells up to 3034
  expect   DTST:3020,3034,OK
  #:
  send     dtst=4,2
  expect   DTST:3040,3041,3042,3043,3044
  expect   3045,3046,3047,3048,3049
  expect   3050,3051,3052,3053,3054
  expect   OK
  send     dtst=4,12,3240,3254
  expect   DTST:0x00,3240,3254,OK
  send     dtst=4,12,3241,3254
  expect   DTST:0x01,3240,3254,OK
  send     dtst=4,12,3240,3253
  expect   DTST:0x01,3240,3254,OK

the driver's own tests have modes of their own
  # 3000 + 20 * 106 = 5120
  send     dtst=6,6
  expect   DTST:5120,5121,5122,5123,5124
  expect   5125,5126,5127,5128,5129
  expect   5130,5131,5132,5133,5134
  expect   OK
  send     dtst=6,7
  expect   DTST: ,SYNTAX

values out of range
  send     dtst=8
  expect   DTST: ,SYNTAX
  send     dtst=4,13
  expect   DTST: ,SYNTAX
  send     dtst=4,1,5,4
  expect   DTST: ,SYNTAX
  send     dtst=7,11
  expect   DTST: ,SYNTAX

help, and a panel that isn't there
  conf     without /system/modules/max1187x.ko
  phone    speed 100
  send     dtst=?
  expect   DTST:Touch Screen Self Test,dtst      (1-7)[,(0-12),(0-0xff),(0-0xff)]                  dtst(action,mode,min,max),OK
  send     dtst=1
  expect   ERROR
