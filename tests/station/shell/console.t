# The console: how bytes become lines, what ends an answer, and what comes of lines that are none.

a line ends with CR, with LF or with both, and an empty one gets the final sequence and no word
  raw      case?\n
  expect   CASE:false,OK
  raw      case?\r\n
  expect   CASE:false,OK
  # one after the other they end a line and an empty line
  raw      case?\r
  expect   CASE:false,OK
  raw      \n
  read     \r\n
  raw      \r\n\r\n
  read     \r\n

two lines in one write are one line
  raw      ca\r\nse?\r\n
  expect   CASE:false,OK
  raw      case?\rcase?\r
  # case?case? : a read whose value is 0 and has letters left over
  expect   case      [(0,1)]                                           case(en),SYNTAX

a backspace takes the character before it, and there may be none
  raw      \x08\x08cx\x08ase?\r
  expect   CASE:false,OK
  raw      case\x08\x08\x08\x08\x08\r
  read     \r\n

a NUL ends what is read of a line
  raw      case?\x00=1\r
  expect   CASE:false,OK
  raw      \x00case?\r
  read     \r\n

control characters and bytes above ASCII make a name that nobody has
  raw      \x01\x02\x03\x04\x05\x06\x07\x09\x0b\x0c\x0e\x0f\x10\x11\x12\x13\x14\x15\x16\x17\x18\x19\x1a\x1b\x1c\x1d\x1e\x1f\x7f\r
  expect   NOT FOUND
  raw      \x80\xa0\xc3\xa9\xfe\xff\r
  expect   NOT FOUND
  raw      case?\xff\r
  expect   case      [(0,1)]                                           case(en),SYNTAX

a name is matched whole, blanks are part of it
  send     cas -> NOT FOUND
  raw      case \r
  expect   NOT FOUND
  raw      \x20case\r
  expect   NOT FOUND

more than sixteen values are too many
  # eighteen, for a format that repeats for ever
  send     s3=1,2,3,4,5,6,7,8,9,a,b,c,d,e,f,10,11,12
  expect   s3        0xB[,0xB]                                         s3(ct,final),SYNTAX
  send     s3?1,2,3,4,5,6,7,8,9,a,b,c,d,e,f,10 -> S3:0x2c, 0x0d,OK

registers are read up to R32
  send     help="s3",R0
  # a mask of 0 leaves no group
  expect   NOT FOUND
  send     help="s3",r32 -> NOT FOUND
  send     help="s3",R33 -> help      ["a..z"[,(1-15)]]                                 help(string,group),SYNTAX

a line can't read memory
  send     help="s3",*0 -> help      ["a..z"[,(1-15)]]                                 help(string,group),SYNTAX
  send     help=*12345678 -> help      ["a..z"[,(1-15)]]                                 help(string,group),SYNTAX
  send     help="s3",&&1 -> help      ["a..z"[,(1-15)]]                                 help(string,group),SYNTAX
  send     help="s3",***1 -> help      ["a..z"[,(1-15)]]                                 help(string,group),SYNTAX

numbers of any length wrap
  # 36893488147419103233 is twice 2 to the 64th and 1
  send     case=36893488147419103233 -> case:true,OK

the cable is pulled in the middle of a line, and the line goes on
  raw      ca
  phone    idle | usb off | idle | usb on
  read     TP,OK\r\n
  raw      se?\r
  expect   CASE:false,OK

a write that fails loses that text and nothing else
  phone    fail write /dev/ttyGS0 1
  send     case? -> ,OK
  send     case? -> CASE:false,OK

a console on the second serial port of a phone that has one
  conf     with /dev/ttyGS1
  send     case? -> CASE:false,OK
