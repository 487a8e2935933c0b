#: Runs the self tests of the touch controller.
#: dtst=KIND | KIND 1, 2 or 3: a self test, its first result in hexadecimal
#: dtst=5[,TEST] | five more self tests: TEST 0 (when left out) to 4
#: dtst=4[,MODE[,MIN[,MAX]]] | measures the panel. MODE 0, also when left out: the result, `0x00` when good. An odd
#:   MODE up to 11: the smallest and the largest value. An even one up to 12: the whole matrix, a row a line, values
#:   separated by commas, with line ends of its own. With MIN and MAX: the result against these limits, smallest and
#:   largest value
#: dtst=6[,MODE] | the driver's own tests: MODE 0 the result, 1 to 6 the matrix
#: dtst=7[,MODE[,FRAMES,FRAMES]] | the touch sensor's own tests, 40 rows by 24 columns, measured over FRAMES frames, 1 to
#:   255, 10 when left out. The number stands twice, since it is a lower and an upper limit for the other tests. All
#:   values have a comma behind them. MODE 0: resets the controller. 1: the largest noise and its node, counted row by
#:   row from 0; 2: the noise of all 960 nodes. 3: raw nodes, smallest and its node, largest and its node; 4: all of
#:   them. 6: differences of neighbours, 39 rows of 23. 7: drive lines, average, how far the smallest and the largest
#:   are from it as parts of it, smallest and its node, largest and its node; 8: all nodes. 9 and 10: the same for the
#:   sense lines. FRAMES 0 in the modes 3 to 10 measures nothing and tells the last results
#: Answers `DTST: ` and `ERROR` when a test fails to run, a sensor's test also when its frames don't come;
#: `ERROR` with no line when the panel's driver doesn't come
#: up.

the self tests are of five kinds and more, and only the first result counts
  # the phone's results: 0x10 and the kind
  #:
  send     dtst=1 -> DTST:0x10,OK
  send     dtst=2 -> DTST:0x12,OK
  send     dtst=3 -> DTST:0x11,OK
  send     dtst=5 -> DTST:0x17,OK
  send     dtst=5,1 -> DTST:0x13,OK
  send     dtst?5,4 -> DTST:0x16,OK
  send     dtst=5,5 -> DTST: ,SYNTAX
  phone    touchtest 2 0x1234 1 2
  send     dtst=2 -> DTST:0x1234,OK

a test that the driver refuses
  phone    touchtest 0 fail
  send     dtst=1 -> DTST: ,ERROR

a measurement: result, limits, or the whole matrix
  # 15 cells from 3000 + 20 for each mode on
  send     dtst=4 -> DTST:0x00,OK
  # 3000 + 20 = 3020, 15 cells up to 3034
  send     dtst=4,1 -> DTST:3020,3034,OK
  #:
  send     dtst=4,2 -> DTST:3040,3041,3042,3043,3044
  expect   3045,3046,3047,3048,3049
  expect   3050,3051,3052,3053,3054
  expect   OK
  send     dtst=4,12,3240,3254 -> DTST:0x00,3240,3254,OK
  send     dtst=4,12,3241,3254 | dtst=4,12,3240,3253 -> DTST:0x01,3240,3254,OK

the driver's own tests have modes of their own
  # 3000 + 20 * 106 = 5120
  send     dtst=6,6 -> DTST:5120,5121,5122,5123,5124
  expect   5125,5126,5127,5128,5129
  expect   5130,5131,5132,5133,5134
  expect   OK
  send     dtst=6,7 -> DTST: ,SYNTAX

values out of range
  send     dtst=8 | dtst=4,13 | dtst=4,1,5,4 | dtst=7,11 -> DTST: ,SYNTAX

help, and a panel that isn't there
  conf     without /system/modules/max1187x.ko
  phone    speed 100
  send     dtst=? -> DTST:Touch Screen Self Test,dtst      (1-7)[,(0-12),(0-0xff),(0-0xff)]                  dtst(action,mode,min,max),OK
  send     dtst=1 -> ERROR

a healthy touch sensor
  phone    clock hold
  # noise is 1 + (row + column) mod 3, in frames of an odd number
  #: The largest noise, 3, of node 2, the third of the first row:
  send     dtst=7,1 after 12000 -> DTST:3,2,OK
  # five of ten frames have the noise, 0.5 to 1.5: the averages of the pixels are 1000 + 2 * column + 0, 1 or 1
  send     dtst=7,3 after 12000 -> DTST:1000,0,1047,23,OK
  # 800 + row + column, 831 on average, and two thirds: (831 - 800) / 831, (863 - 831) / 831; node 959 has 862 + 1
  send     dtst=7,7 after 12000 -> DTST:831,0.037304,0.038508,800,0,863,959,OK
  # 600 + 3 * column - row, of the drive lines' run: 561 in row 39, node 936, 669 + 1 in row 0
  #: The results for the sense lines, measured with the drive lines:
  send     dtst=7,9,0,0 -> DTST:615,0.087805,0.089431,561,936,670,23,OK

nodes that are broken move the numbers
  phone    clock hold | matrix noise all all 0 | matrix pixel 5 7 200
  send     dtst=7,3 after 12000 -> DTST:200,127,1046,23,OK
  send     dtst=7,4,0,0
  expect   DTST:\*5{1000,1002,1004,1006,1008,1010,1012,1014,1016,1018,1020,1022,1024,1026,1028,1030,1032,1034,1036,1038,1040,1042,1044,1046,}1000,1002,1004,1006,1008,1010,1012,200,1016,1018,1020,1022,1024,1026,1028,1030,1032,1034,1036,1038,1040,1042,1044,1046,\*34{1000,1002,1004,1006,1008,1010,1012,1014,1016,1018,1020,1022,1024,1026,1028,1030,1032,1034,1036,1038,1040,1042,1044,1046,}OK
  # to the right: 812, 816, all else 2; down from there: 810, 814 twice, all else 0
  send     dtst=7,6,0,0 -> DTST:\*98{0,}810,814,\*21{0,}810,814,\*774{0,}OK
  # the differences are those of a copy
  send     dtst=7,4,0,0
  expect   DTST:\*5{1000,1002,1004,1006,1008,1010,1012,1014,1016,1018,1020,1022,1024,1026,1028,1030,1032,1034,1036,1038,1040,1042,1044,1046,}1000,1002,1004,1006,1008,1010,1012,200,1016,1018,1020,1022,1024,1026,1028,1030,1032,1034,1036,1038,1040,1042,1044,1046,\*34{1000,1002,1004,1006,1008,1010,1012,1014,1016,1018,1020,1022,1024,1026,1028,1030,1032,1034,1036,1038,1040,1042,1044,1046,}OK
  phone    matrix pixel 39 23 -500
  send     dtst=7,3,1,1 after 12000 -> DTST:-500,959,1046,23,OK
  phone    matrix noise 39 23 70
  send     dtst=7,1 after 12000 -> DTST:70,959,OK
  send     dtst=7,2,2,2 after 12000 -> DTST:\*959{0,}70,OK
  # one frame has no noise
  send     dtst=7,2,1,1 after 12000 -> DTST:\*960{0,}OK

lines that are open or shorted
  phone    clock hold | matrix noise all all 0 | matrix drive all all 500 | matrix drive 39 22 20
  phone    matrix sense all all 400 | matrix sense 0 1 880
  # 500 - 480 / 960 = 499.5; 479 / 499 and 1 / 499
  send     dtst=7,7,3,3 after 12000 -> DTST:499,0.959920,0.002004,20,958,500,0,OK
  send     dtst=7,8,0,0 -> DTST:\*958{500,}20,500,OK
  # 400 + 480 / 960
  send     dtst=7,9,0,0 -> DTST:400,0.000000,1.200000,400,0,880,1,OK
  send     dtst=7,10,0,0 -> DTST:400,880,\*958{400,}OK
  # an average of 0 has no parts
  phone    matrix drive all all 0 | matrix sense all all 0
  send     dtst=7,10,1,1 after 12000 -> DTST:\*960{0,}OK
  send     dtst=7,7,0,0 -> DTST:0,0.000000,0.000000,0,0,0,0,OK

without frames the last results come, and before the first there are none
  phone    clock hold
  send     dtst=7,3,0,0 after 2000 -> DTST:0,0,0,0,OK
  send     dtst=7,7,0,0 -> DTST:0,0.000000,0.000000,0,0,0,0,OK
  # noise has no last results
  send     dtst=7,1,4,4 after 12000 -> DTST:3,2,OK
  send     dtst=7,1,0,0 -> DTST:0,0,OK
  # a failed test leaves them
  send     dtst=7,3,2,2 after 12000 -> DTST:1000,0,1047,23,OK
  phone    matrix reports off
  send     dtst=7,3,2,2 after 40000 -> DTST: ,ERROR
  send     dtst=7,3,0,0 -> DTST:1000,0,1047,23,OK

the number of frames
  phone    clock hold
  send     dtst=7,1,-1,-1 after 12000 -> DTST:3,2,OK
  send     dtst=7,1,255,255 after 12000 -> DTST:3,2,OK
  send     dtst=7,1,256,256 | dtst=7,1,10 -> DTST: ,SYNTAX
  send     dtst=7,5 -> DTST: ,ERROR

what the controller is told, with the configuration of its panel first and once
  conf     touch 1 0x75 0x0012 0x00010203
  phone    clock hold
  send     dtst=7,0 after 12000 -> DTST:OK
  phone    matrix commands -> 002000010000\n0001004100121828021200040103010003020504070609080B0A0D0C0F0E111013121514171619181B
  +        1A1D1C1F1E2120232225242726010003020504070609080B0A0D0C0F0E1110131215141716FFFFFFFFFFFFFFFF078004
  +        38008C0046000C00030000000000000000000000000000000000000000000000000000000000000000000049E8\n0010
  +        004A0420042104220423042404250426042704280429042A042B042C042D042E042F0430043104320433043404350436
  +        043704380439043A043B043C043D043E043F0440044104420443044404450446044704480449044A044B044C044D044E
  +        044F0450045104520453045404550456045704580459045A045B045C045D045E045F0460046104620463046404650466
  +        046704683764\n00030022001200150018001B001E002100240027002A002D0030003300360039003C003F0042004500
  +        48004B004E005100540057005A005D0060006300660069006C006F00720882\n003000080000009A013401CE02680302
  +        039C0CA2\n0030000800000112022403360448055A066C167A\n002000010002\n00E90000

two other panels have configurations of their own: the second
  conf     touch 1 0x75 0x0013 0x00010203
  phone    clock hold
  send     dtst=7,0 after 12000 -> DTST:OK
  phone    matrix commands -> 002000010000\n0001004100131828021300050103010003020504070609080B0A0D0C0F0E111013121514171619181B
  +        1A1D1C1F1E2120232225242726010003020504070609080B0A0D0C0F0E1110131215141716FFFFFFFFFFFFFFFF078004
  +        3800870044000E00030000000000000000000000000000000000000000000000000000000000000000000049E6\n0010
  +        004A0430043104320433043404350436043704380439043A043B043C043D043E043F0440044104420443044404450446
  +        044704480449044A044B044C044D044E044F0450045104520453045404550456045704580459045A045B045C045D045E
  +        045F0460046104620463046404650466046704680469046A046B046C046D046E046F0470047104720473047404750476
  +        047704783BF4\n00030022001300160019001C001F002200250028002B002E003100340037003A003D00400043004600
  +        49004C004F005200550058005B005E006100640067006A006D0070007308A3\n003000080000009A013401CE02680302
  +        039C0CA2\n0030000800000112022403360448055A066C167A\n002000010002\n00E90000

the commands of each test, behind the configuration for a panel that has none of its own
  phone    clock hold | matrix noise all all 0
  send     dtst=7,1,1,1 after 12000 -> DTST:0,0,OK
  send     dtst=7,4,0,0 after 10 -> DTST:\*960{0,}OK
  send     dtst=7,3,1,1 after 12000 -> DTST:1000,0,1046,23,OK
  send     dtst=7,7,1,1 after 12000 -> DTST:831,0.037304,0.037304,800,0,862,959,OK
  phone    matrix commands -> 002000010000\n0001004100101828021000040102010003020504070609080B0A0D0C0F0E111013121514171619181B
  +        1A1D1C1F1E2120232225242726010003020504070609080B0A0D0C0F0E1110131215141716FFFFFFFFFFFFFFFF078004
  +        380078003C000C00030000000000000000000000000000000000000000000000000000000000000000000049C5\n0010
  +        004A0400040104020403040404050406040704080409040A040B040C040D040E040F0410041104120413041404150416
  +        041704180419041A041B041C041D041E041F0420042104220423042404250426042704280429042A042B042C042D042E
  +        042F0430043104320433043404350436043704380439043A043B043C043D043E043F0440044104420443044404450446
  +        044704482E44\n000300220010001300160019001C001F002200250028002B002E003100340037003A003D0040004300
  +        460049004C004F005200550058005B005E006100640067006A006D00700840\n003000080000009A013401CE02680302
  +        039C0CA2\n0030000800000112022403360448055A066C167A\n002000010002\n001800010000\n002000010003\n00
  +        1800010002\n002000010003\n00410001030C\n002800010000\n002000010003\n002600010505\n002000010003\n
  +        00480000\n001800010000\n001400180000000000000000000000000000000000000000000000000000000000000000
  +        00000000000000000000000000000000\n002000010000\n001800010002\n001800010002\n00E90000\n0041000103
  +        0C\n002800010000\n002000010003\n002600010505\n001800010000\n002000010003\n001800010002\n00280001
  +        0000\n00410001030C\n002800010000\n002000010003\n002600010505\n002000010003\n00480000\n0020000100
  +        04\n002000010000\n001800010002\n001800010002\n00E90000\n00410001030C\n002800010000\n002000010003
  +        \n002600010505\n002000010004\n002000010003\n001800010002\n002000010003\n00410001030C\n0028000100
  +        00\n002000010003\n002600010505\n002000010003\n00480000\n0020000500050AAA0AAA05550555\n0020000100
  +        00\n001800010002\n001800010002\n00E90000\n00410001030C\n002800010000\n002000010003\n002600010505
  +        \n0020000500050AAA0AAA05550555\n002000010003\n001800010002\n002000010003

reports in pieces, of a wrong length, and none at all
  phone    clock hold | matrix reports pieces
  send     dtst=7,3 after 12000 -> DTST:1000,0,1047,23,OK
  phone    matrix reports short
  send     dtst=7,3 after 40000 -> DTST: ,ERROR
  phone    matrix reports on
  send     dtst=7,3 after 12000 -> DTST:1000,0,1047,23,OK
  phone    matrix reports off
  send     dtst=7,1 after 40000 -> DTST: ,ERROR
  send     dtst=7,7 after 60000 -> DTST: ,ERROR
  send     dtst=7,0 after 10000 -> DTST: ,ERROR
  phone    matrix reports on
  send     dtst=7,0 after 12000 -> DTST:OK
  send     dtst=7,7 after 12000 -> DTST:831,0.037304,0.038508,800,0,863,959,OK

a report that ends in the middle, and a reader that fails
  phone    clock hold
  send     dtst=7,1 after 12000 -> DTST:3,2,OK
  # the reader has ended for want of reports; the next test has a new one, which fails once and is started again
  phone    clock +5000 | fail read /sys/bus/i2c/devices/0-0048/report 1 eof
  send     dtst=7,1 after 12000 -> DTST:3,2,OK
  phone    fail read /sys/bus/i2c/devices/0-0048/report all eof
  send     dtst=7,3 after 40000 -> DTST: ,ERROR
  phone    fail off
  send     dtst=7,3 after 12000 -> DTST:1000,0,1047,23,OK
  phone    fail poll /sys/bus/i2c/devices/0-0048/report all
  send     dtst=7,7 after 60000 -> DTST: ,ERROR
  phone    fail off
  send     dtst=7,3 after 12000 -> DTST:1000,0,1047,23,OK

a controller without its attributes
  conf     without /sys/bus/i2c/devices/0-0048/report
  phone    clock hold
  send     dtst=7,1 after 5000 -> DTST: ,ERROR
  send     dtst=7,0 after 5000 -> DTST: ,ERROR

a controller that takes no commands, until it does
  phone    clock hold | fail open /sys/bus/i2c/devices/0-0048/command all
  send     dtst=7,1 after 5000 -> DTST: ,ERROR
  phone    fail off
  # the configuration is sent now
  send     dtst=7,1 after 12000 -> DTST:3,2,OK

a closing command that isn't taken doesn't keep the others back, or the next test would measure offsets
  phone    clock hold
  send     dtst=7,0 after 12000 -> DTST:OK
  # the frames of the offsets take 5 s: the first command behind them fails
  send     dtst=7,3,255,255
  phone    clock +3000 | fail open /sys/bus/i2c/devices/0-0048/command
  after    20000 -> DTST: ,ERROR
  phone    fail off -> 0 faults were never reached
  send     dtst=7,1 after 12000 -> DTST:3,2,OK
  # nor do reports that can't be read any more
  send     dtst=7,3,255,255
  phone    clock +3000 | fail open /sys/bus/i2c/devices/0-0048/report all | matrix reports short
  after    20000 -> DTST: ,ERROR
  phone    fail off | matrix reports on
  send     dtst=7,1 after 12000 -> DTST:3,2,OK

a panel that doesn't tell its identity can't be configured
  phone    clock hold | fail ioctl /dev/max1187x_ctrl
  send     dtst=7,1 after 5000 -> DTST: ,ERROR
  send     dtst=7,1 after 12000 -> DTST:3,2,OK
