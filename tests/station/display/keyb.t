#: Starts and ends the key test, in which the phone reports each key that is pressed and released.
#: keyb=1 | starts it, or changes the report to: the key's name or character with `p` for pressed or repeated, `r` for
#:   released, as in `RETURNp`, without the command's name; the key 408 isn't reported, one without a name is
#:   `KEYB:unknown`. So does `keyb`, which leaves a running test as it is
#: keyb=2 | the report is `KEYB:CODE,p`, CODE the Linux key code in hexadecimal
#: keyb=3 | the report is `KEYB: row: 0, col: 0, p`: this phone's keys have no places in a matrix
#: keyb=4 | the report is that of `keyb=1` and of the key 408 alone
#: keyb=0 | ends it
#: keyb? | `0x1` while it runs, else `0x0`
#: Answers with one blank. Reports come at any time after that, each with CR LF behind it, whatever `s3` and `s4` say,
#: and without a status word. While the test runs, holding the power key doesn't reset the phone so soon.
# The key test: what the station reads of each key, in each form, and what becomes of the power key's timers.

names and characters with p and r, without the command's name
  #:
  send     keyb=1 -> KEYB: ,OK
  phone    key 116 down
  expect   Pp
  phone    key 116 up
  expect   Pr
  # 30 is the letter a, 57 the blank, 43 the backslash
  phone    key 30 tap
  expect   ap
  expect   ar
  phone    key 57 tap
  read     \x20p\r\n\x20r\r\n
  phone    key 43 tap
  expect   \\p
  expect   \\r
  # 106 is RIGHT, which is written once in each of two places
  phone    key 106 tap
  expect   RIGHTp
  expect   RIGHTr
  # a key without name and character
  phone    key 240 tap
  expect   KEYB:unknown
  expect   KEYB:unknown
  send     keyb=0 -> KEYB: ,OK

codes in hexadecimal, a key that repeats is pressed again, and the help
  # 528 = 0x210, 408 = 0x198
  #:
  send     keyb=2 -> KEYB: ,OK
  phone    key 528 down | key 528 repeat
  expect   KEYB:210,p
  expect   KEYB:210,p
  phone    key 528 up
  expect   KEYB:210,r
  phone    key 408 tap
  expect   KEYB:198,p
  expect   KEYB:198,r
  # touch and mouse buttons are no keys
  phone    key 330 tap | key 259 tap | clock +400 | key 260 tap
  expect   KEYB:104,p
  expect   KEYB:104,r
  send     keyb=? -> KEYB:Key test,keyb      (0-3)                                             off,string,numeric,columms,OK

the key 408 is held back in the string form and alone in the form 4; the matrix form knows no place
  send     keyb=1 -> KEYB: ,OK
  phone    key 408 tap | clock +200
  send     keyb=4 -> KEYB: ,OK
  phone    key 116 tap | key 408 tap
  expect   HWp
  expect   HWr
  send     keyb=3 -> KEYB: ,OK
  phone    key 116 tap
  expect   KEYB: row: 0, col: 0, p
  expect   KEYB: row: 0, col: 0, r

without a value the test starts in the string form; a new value changes it and attaches nothing twice
  send     keyb -> KEYB: ,OK
  phone    key 28 tap
  expect   RETURNp
  expect   RETURNr
  send     keyb=2 | keyb -> KEYB: ,OK
  phone    key 116 tap
  expect   KEYB:74,p
  expect   KEYB:74,r

it tells whether it is active, a value out of range leaves it as it was, and after its end nothing is reported
  send     keyb? -> KEYB:0x0,OK
  send     keyb=2 -> KEYB: ,OK
  send     keyb? -> KEYB:0x1,OK
  send     keyb=5 -> KEYB: Control value out of range: 5 ,ERROR
  phone    key 30 down
  expect   KEYB:1e,p
  send     keyb=0 -> KEYB: ,OK
  phone    key 30 up | clock +200
  send     keyb? -> KEYB:0x0,OK

the reports have line ends of their own and leave the station's alone
  send     s3=2b,d -> S3:0x2b, 0x0d+OK
  send     keyb=2 -> KEYB: +OK
  phone    key 30 down
  expect   KEYB:1e,p
  send     keyb? -> KEYB:0x1+OK

while it runs the power key's reset is late and off; a chip that doesn't take that is told, and the test stays off
  phone    fail spmi 00845 1
  send     keyb=1 -> KEYB: ,ERROR
  send     keyb? -> KEYB:0x0,OK
  phone    spmi 844 -> 0F | spmi 845 -> 06 | spmi 847 -> 80
  send     keyb=1 -> KEYB: ,OK
  phone    spmi 844 -> 04 | spmi 845 -> 07 | spmi 847 -> 00
  send     keyb=0 -> KEYB: ,OK
  phone    spmi 844 -> 0F | spmi 845 -> 06 | spmi 847 -> 80

the keys are looked for every 20 ms, and each time one event of a node is taken
  send     keyb=2 -> KEYB: ,OK
  phone    clock hold
  # two events a change of a key: its own and one that ends the report; 10 looks
  phone    key 30 tap | key 31 tap | key 32 tap
  after    200 -> KEYB:1e,p
  expect   KEYB:1e,r
  expect   KEYB:1f,p
  expect   KEYB:1f,r
  expect   KEYB:20,p
  send     case? -> CASE:false,OK
  after    20 -> KEYB:20,r
