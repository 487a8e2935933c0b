#: Tests the infrared port by loop back; what comes of it is told later.
#: ilop=1[,TIME] | sends the packet and compares what comes: no answer now, later one line of its own, ended by CR LF:
#:   `ILOP:`, the bytes that came and the bits in which they differ, hexadecimal, `OK`. TIME (ms, 2000 when left out) is
#:   half of how long that is waited for; nothing is `ILOP:0x0,-1,OK`
#: ilop[=2[,TIME]] | the same, and what came goes back again and again, a line each time, until nothing comes for 4.7 s
#: ilop=0 | is the other side: sends back what comes, with a line each time and without a limit of time. An empty line
#: Before `irpa` it is `ERROR` without a line.

with a partner that sends back what it hears, all bits are right
  phone    irda echo on
  send     irpa=4,5 -> IRPA:,OK
  #:
  send     ilop=1 -> ILOP:0x4,0x0,OK

one exchange: the packet goes out, what comes is compared bit by bit and sent back, and the receiver stays off
  send     irpa=4,5 -> IRPA:,OK
  phone    clock hold
  send     ilop=1
  phone    clock +45 | irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 1
  # one bit of 55 and two of FF
  phone    irda 54AA00FC -> heard
  after    1 -> ILOP:0x4,0x3,OK
  phone    clock +400
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 2 | irda last -> 54AA00FC
  phone    clock +5000 | irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 2
  phone    clock run

at 9600 baud the receiver comes on when the last bit is out, 0.27 s after the first
  send     irpa=0,4 -> IRPA:,OK
  phone    clock hold
  send     ilop=1,5000
  # 20 ms, 256 bytes in 266.7 ms, looked at every 20
  phone    clock +285 | irda -> select 1 uart 1 receiver 0 mode 1 speed 9600 sent 0
  phone    clock +20
  phone    irda -> select 1 uart 1 receiver 1 mode 1 speed 9600 sent 1 | irda 00010203 -> heard
  after    1 -> ILOP:0x4,0x0,OK
  phone    clock run

going on: with a partner that sends all back it lasts until the partner falls silent
  send     irpa=4,4 -> IRPA:,OK
  phone    irda echo on | clock hold
  # 20 ms, 22.2 ms of packet, 50 ms
  send     ilop after 95 -> ILOP:0x100,0x0,OK
  # 350 ms later it goes back, and comes again after 72.2 ms
  after    424 -> ILOP:0x100,0x0,OK
  phone    irda echo off | clock +4650
  after    400 -> ILOP:0x0,-1,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 3
  phone    clock run

the side that answers sends back what comes, any number of times and without a limit of time
  send     irpa=4,0 -> IRPA:,OK
  phone    clock hold
  send     ilop=0 after 20000 -> ILOP:,OK
  phone    irda 00000001FF -> heard
  after    1 -> ILOP:0x5,0x9,OK
  phone    clock +400 | irda last -> 00000001FF | irda 0000000003 -> heard
  after    1 -> ILOP:0x5,0x2,OK
  phone    clock +400 | irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 2
  phone    clock run

silence is told after twice the time, at once for a time of 0, and never for one beyond all measure
  send     irpa=4,5 -> IRPA:,OK
  phone    clock hold
  send     ilop=1,500
  phone    clock +990
  after    20 -> ILOP:0x0,-1,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 1
  send     ilop=2
  phone    clock +3990
  after    20 -> ILOP:0x0,-1,OK
  send     ilop=1,0 after 100 -> ILOP:0x0,-1,OK
  # nothing went out
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 2
  # 4294968 * 1000 is 704 in 32 bits
  send     ilop=1,4294968
  phone    clock +60000 | irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 3
  phone    clock run

a second loop back takes the place of the first
  send     irpa=4,5 -> IRPA:,OK
  phone    clock hold
  send     ilop=2,300
  phone    clock +10
  send     ilop=1,3000
  phone    clock +1000 | irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 1
  send     irrx=0 after 6000 -> IRRX:,OK
  phone    clock run

a report goes out under the name of the last test
  send     irpa=4,5 -> IRPA:,OK
  send     ilop=0 -> ILOP:,OK
  send     irrx=1 -> IRRX:,OK
  phone    irda 55AA00FF -> heard
  expect   IRRX:0x4,0x04,OK
  send     case=1 -> case:true,OK
  phone    irda 55AA00FF -> heard
  expect   irrx:0x4,0x04,OK

without a port, or with a transceiver that doesn't obey, it is an error at once and without a line
  send     ilop=1 | ilop=0 -> ERROR
  send     irpa -> IRPA:,OK
  phone    fail irda CC10
  send     ilop=2 -> ERROR
  phone    fail irda CC0F
  send     ilop=0 -> ERROR

values out of range touch nothing
  send     ilop=3 | ilop=1,2,3 | ilop=-1 -> SYNTAX
  send     ilop=? -> ILOP:IrDA Loop back,ilop      (0x0-0x1)[,(0-10000)]                             ,OK
