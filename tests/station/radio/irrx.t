#: Receives by infrared; what comes is told later.
#: irrx=1 | switches the receiver on. Each packet is then told by a line of its own, ended by CR LF: `IRRX:`, its bytes and
#:   those of the packet that would be sent, hexadecimal, `OK`. After 10 s without a packet `IRRX:0x0,-1,OK` ends it
#: irrx[=0] | switches it off
#: An empty line. Fewer than four bytes aren't told.

each packet is told with its length and that of the packet that would be sent
  send     irpa=4,1 -> IRPA:,OK
  #:
  send     irrx=1 -> IRRX:,OK
  phone    irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 0 | irda 01020304 -> heard
  expect   IRRX:0x4,0x100,OK
  phone    idle | irda \*256{5A} -> heard
  expect   IRRX:0x100,0x100,OK
  phone    idle | irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 0
  send     irpa=4,5 -> IRPA:,OK
  send     irrx?7 -> IRRX:,OK
  phone    irda 01020304 -> heard
  expect   IRRX:0x4,0x04,OK

fewer than four bytes are dropped, more than 256 are two packets
  send     irpa -> IRPA:,OK
  send     irrx=1 -> IRRX:,OK
  phone    irda 010203 -> heard
  phone    idle | irda \*300{11} -> heard
  read     IRRX:0x100,0x100,OK\r\nIRRX:0x2C,0x100,OK\r\n

silence is told after twice 5 seconds, and ends the test; each packet and each command gives the time anew
  send     irpa -> IRPA:,OK
  phone    clock hold
  send     irrx=1 after 1 -> IRRX:,OK
  phone    clock +9990
  after    20 -> IRRX:0x0,-1,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 0 speed 115200 sent 0 | irda 01020304 -> lost
  send     irrx=1 after 4000 -> IRRX:,OK
  send     irrx=1 after 3000 -> IRRX:,OK
  phone    irda 01020304 -> heard
  after    1 -> IRRX:0x4,0x100,OK
  phone    clock +9980
  after    30 -> IRRX:0x0,-1,OK
  phone    clock run

a time-out that is on its way is void once the test is ended, in each of the ways
  send     irpa -> IRPA:,OK
  phone    clock hold
  send     irrx=1 after 7000 -> IRRX:,OK
  send     irrx=0 after 7000 -> IRRX:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 0 speed 115200 sent 0
  send     irrx=1 after 7000 -> IRRX:,OK
  send     irtx=1 after 7000 -> IRTX:,OK
  send     irrx=1 after 7000 -> IRRX:,OK
  send     irpa after 7000 -> IRPA:,OK
  send     irrx=1 after 7000 -> IRRX:,OK
  phone    irda 01020304 -> heard
  after    1 -> IRRX:0x4,0x100,OK
  phone    clock +7000
  send     irtx=0 after 7000 -> IRTX:,OK
  phone    clock run

with the key poll beside it the time stays that of the test
  send     irpa -> IRPA:,OK
  send     keyb=2 -> KEYB: ,OK
  phone    clock hold
  send     irrx=1 after 9980 -> IRRX:,OK
  after    30 -> IRRX:0x0,-1,OK
  phone    clock run

the console's own line ends are in force again behind a report
  send     s3=2c,d -> S3:0x2c, 0x0d,OK
  send     irpa -> IRPA:,OK
  send     irrx=1 -> IRRX:,OK
  phone    irda 01020304 -> heard
  expect   IRRX:0x4,0x100,OK
  send     s4? -> S4:0x00, 0x0a,OK
  send     s3? -> S3:0x2c, 0x0d,OK

a reading that fails is made again
  send     irpa -> IRPA:,OK
  send     irrx=1 -> IRRX:,OK
  phone    fail read /dev/ttyHSL2 3 | irda 01020304 -> heard
  expect   IRRX:0x4,0x100,OK
  phone    fail off -> 0 faults were never reached

what is read when the test has just ended is dropped
  send     irpa -> IRPA:,OK
  send     irrx=1 -> IRRX:,OK
  phone    clock hold
  # the packet comes while the receiver is being switched off
  phone    fail ioctl /dev/irda 1 slow 50
  send     irrx=0
  awaits   fail -> ioctl /dev/irda, none left, slow 50, 1 hit
  phone    irda 01020304 -> heard
  after    60 -> IRRX:,OK
  phone    clock run | fail off -> 0 faults were never reached
  send     irrx=1 -> IRRX:,OK
  phone    irda 0102030405 -> heard
  expect   IRRX:0x5,0x100,OK

without a port, or with a transceiver that doesn't obey, it is an error
  send     irrx=1 | irrx -> IRRX:,ERROR
  send     irpa -> IRPA:,OK
  phone    fail irda CC0F
  send     irrx=1 -> IRRX:,ERROR
  phone    fail irda CC10
  send     irrx=0 -> IRRX:,ERROR
  send     irrx=1,1 -> irrx      (0x0-0x1)                                         ,SYNTAX
  send     irrx=? -> IRRX:IrDA Static Receive,irrx      (0x0-0x1)                                         ,OK
