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
  send     ilop=1
  read     ILOP:0x4,0x0,OK\r\n

one exchange: the packet goes out, what comes is compared bit by bit and sent back, and the receiver stays off
  send     irpa=4,5 -> IRPA:,OK
  phone    clock hold
  raw      ilop=1\r
  phone    clock +45
  phone    irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 1
  # one bit of 55 and two of FF
  phone    irda 54AA00FC -> heard
  phone    clock +1
  read     ILOP:0x4,0x3,OK\r\n
  phone    clock +400
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 2 | irda last -> 54AA00FC
  phone    clock +5000
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 2
  phone    clock run

at 9600 baud the receiver comes on when the last bit is out, 0.27 s after the first
  send     irpa=0,4 -> IRPA:,OK
  phone    clock hold
  raw      ilop=1,5000\r
  # 20 ms, 256 bytes in 266.7 ms, looked at every 20
  phone    clock +285
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 9600 sent 0
  phone    clock +20
  phone    irda -> select 1 uart 1 receiver 1 mode 1 speed 9600 sent 1 | irda 00010203 -> heard
  phone    clock +1
  read     ILOP:0x4,0x0,OK\r\n
  phone    clock run

going on: with a partner that sends all back it lasts until the partner falls silent
  send     irpa=4,4 -> IRPA:,OK
  phone    irda echo on | clock hold
  raw      ilop\r
  # 20 ms, 22.2 ms of packet, 50 ms
  phone    clock +95
  read     ILOP:0x100,0x0,OK\r\n
  # 350 ms later it goes back, and comes again after 72.2 ms
  phone    clock +424
  read     ILOP:0x100,0x0,OK\r\n
  phone    irda echo off | clock +4650 | clock +400
  read     ILOP:0x0,-1,OK\r\n
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 3
  phone    clock run

the side that answers sends back what comes, any number of times and without a limit of time
  send     irpa=4,0 -> IRPA:,OK
  phone    clock hold
  raw      ilop=0\r
  after    20000 -> ILOP:,OK
  phone    irda 00000001FF -> heard
  phone    clock +1
  read     ILOP:0x5,0x9,OK\r\n
  phone    clock +400
  phone    irda last -> 00000001FF | irda 0000000003 -> heard
  phone    clock +1
  read     ILOP:0x5,0x2,OK\r\n
  phone    clock +400
  phone    irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 2
  phone    clock run

silence is told after twice the time, at once for a time of 0, and never for one beyond all measure
  send     irpa=4,5 -> IRPA:,OK
  phone    clock hold
  raw      ilop=1,500\r
  phone    clock +990 | clock +20
  read     ILOP:0x0,-1,OK\r\n
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 1
  raw      ilop=2\r
  phone    clock +3990 | clock +20
  read     ILOP:0x0,-1,OK\r\n
  raw      ilop=1,0\r
  phone    clock +100
  read     ILOP:0x0,-1,OK\r\n
  # nothing went out
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 2
  # 4294968 * 1000 is 704 in 32 bits
  raw      ilop=1,4294968\r
  phone    clock +60000
  phone    irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 3
  phone    clock run

a second loop back takes the place of the first
  send     irpa=4,5 -> IRPA:,OK
  phone    clock hold
  raw      ilop=2,300\r
  phone    clock +10
  raw      ilop=1,3000\r
  phone    clock +1000
  phone    irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 1
  raw      irrx=0\r
  after    6000 -> IRRX:,OK
  phone    clock run

a report goes out under the name of the last test
  send     irpa=4,5 -> IRPA:,OK
  send     ilop=0 -> ILOP:,OK
  send     irrx=1 -> IRRX:,OK
  phone    irda 55AA00FF -> heard
  read     IRRX:0x4,0x04,OK\r\n
  send     case=1 -> case:true,OK
  phone    irda 55AA00FF -> heard
  read     irrx:0x4,0x04,OK\r\n

without a port, or with a transceiver that doesn't obey, it is an error at once and without a line
  send     ilop=1 -> ERROR
  send     ilop=0 -> ERROR
  send     irpa -> IRPA:,OK
  phone    fail irda CC10
  send     ilop=2 -> ERROR
  phone    fail irda CC0F
  send     ilop=0 -> ERROR

values out of range touch nothing
  send     ilop=3 -> SYNTAX
  send     ilop=1,2,3 -> SYNTAX
  send     ilop=-1 -> SYNTAX
  send     ilop=? -> ILOP:IrDA Loop back,ilop      (0x0-0x1)[,(0-10000)]                             ,OK
