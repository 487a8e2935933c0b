#: Opens the infrared port and sets its speed and what it sends.
#: irpa[=BAUD[,FORMAT]] | BAUD 0 to 4: 9600, 19200, 38400, 57600, 115200; FORMAT 0 to 5: 256 bytes of 00, FF, 55, AA, 00 to
#:   FF counting, or the four bytes 55 AA 00 FF. Left out they are 4 and 1
#: With a value the port sends infrared pulses, without any it sends plain serial ones. An empty line. Every other command
#: of the port wants this one first.

without values: 115200 baud, plain serial pulses, all bytes FF
  send     irpa -> IRPA:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 0 speed 115200 sent 0
  send     irtx=1 -> IRTX:,OK
  phone    clock +30 | irda last -> \*256{FF}

each speed, with infrared pulses as soon as a value is given
  send     irpa=0 -> IRPA:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 9600 sent 0
  send     irpa=1 -> IRPA:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 19200 sent 0
  send     irpa?2 -> IRPA:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 38400 sent 0
  send     irpa=3,1 -> IRPA:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 57600 sent 0
  #:
  send     irpa=4,1 -> IRPA:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 0
  send     irpa -> IRPA:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 0 speed 115200 sent 0

each format; the last has four bytes, and those of the format before it behind them
  send     irpa=4,0 -> IRPA:,OK
  send     irtx=1 -> IRTX:,OK
  phone    clock +30 | irda last -> \*256{00}
  send     irpa=4,2 -> IRPA:,OK
  send     irtx=1 -> IRTX:,OK
  phone    clock +30 | irda last -> \*256{55}
  send     irpa=4,3 -> IRPA:,OK
  send     irtx=1 -> IRTX:,OK
  phone    clock +30 | irda last -> \*256{AA}
  send     irpa=4,5 -> IRPA:,OK
  send     irtx=1 -> IRTX:,OK
  phone    clock +30 | irda last -> 55AA00FF
  # what comes is compared with AA behind the fourth byte, where 55 has all bits different
  send     ilop=0 -> ILOP:,OK
  phone    irda 55AA00FFAA55 -> heard
  expect   ILOP:0x6,0x8,OK

each step of opening that fails is an error that leaves nothing open
  phone    fail open /dev/ttyHSL2
  send     irpa -> IRPA:,ERROR
  phone    fail open /dev/irda
  send     irpa -> IRPA:,ERROR
  phone    fail irda CC14
  send     irpa -> IRPA:,ERROR
  phone    fail irda CC0B
  send     irpa -> IRPA:,ERROR
  phone    fail off -> 0 faults were never reached | files HSL2 -> | files irda ->
  send     irpa -> IRPA:,OK
  phone    files HSL2 -> /dev/ttyHSL2 | files irda -> /dev/irda

a setting that fails is an error with the port open
  phone    fail ioctl /dev/ttyHSL2
  send     irpa=0 -> IRPA:,ERROR
  phone    fail irda CC11
  send     irpa=0 -> IRPA:,ERROR
  phone    fail irda CC10
  send     irpa=0 -> IRPA:,ERROR
  phone    fail off -> 0 faults were never reached
  send     irpa=0 -> IRPA:,OK

a phone without the transceiver, or without its line
  conf     without /dev/irda
  send     irpa -> IRPA:,ERROR
  send     irtx=1 -> IRTX:,ERROR

values out of range and a third value touch nothing
  send     irpa=5 | irpa=0,6 | irpa=-1 | irpa=0,0,0 -> SYNTAX
  phone    irda -> select 0 uart 0 receiver 0 mode 0 speed 9600 sent 0
  send     irpa=? -> IRPA:IrDA Parameter,irpa      (0x0-0x4),(0x0-0x5)                               ,OK
