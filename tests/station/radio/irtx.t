#: Sends by infrared.
#: irtx=1 | sends the packet once
#: irtx=2 | sends it every 30 ms until another command of the port ends it
#: irtx[=0] | ends all and closes the port
#: An empty line.

a packet is sent once, with the receiver off
  send     irpa=4,4 -> IRPA:,OK
  #:
  send     irtx=1 -> IRTX:,OK
  phone    clock +100 | irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 1
  phone    irda last -> 000102030405060708090A0B0C0D0E0F101112131415161718191A1B1C1D1E1F202122232425262728292A2B2C2D2E2F303132333435363738393A3B3C3D3E3F404142434445464748494A4B4C4D4E4F505152535455565758595A5B5C5D5E5F606162636465666768696A6B6C6D6E6F707172737475767778797A7B7C7D7E7F808182838485868788898A8B8C8D8E8F909192939495969798999A9B9C9D9E9FA0A1A2A3A4A5A6A7A8A9AAABACADAEAFB0B1B2B3B4B5B6B7B8B9BABBBCBDBEBFC0C1C2C3C4C5C6C7C8C9CACBCCCDCECFD0D1D2D3D4D5D6D7D8D9DADBDCDDDEDFE0E1E2E3E4E5E6E7E8E9EAEBECEDEEEFF0F1F2F3F4F5F6F7F8F9FAFBFCFDFEFF

again and again means every 30 ms until it is stopped, which closes the port
  send     irpa=4,5 -> IRPA:,OK
  phone    clock hold
  send     irtx=2 after 10 -> IRTX:,OK
  # 20 ms from the line on, then 10 + 20 ms each
  phone    clock +305 | irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 10
  send     irtx?2 after 30 -> IRTX:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 11
  send     irtx=0 after 300 -> IRTX:,OK
  phone    irda -> select 0 uart 0 receiver 1 mode 1 speed 115200 sent 11
  phone    files HSL2 -> | files irda ->
  phone    clock run

a single packet ends the repeating, and after a loop back it can begin again
  send     irpa=4,5 -> IRPA:,OK
  phone    clock hold
  send     irtx=2 after 75 -> IRTX:,OK
  # at 20 and 50 ms
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 2
  send     irtx=1 after 200 -> IRTX:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 3
  send     irtx=2 after 15 -> IRTX:,OK
  send     ilop=0 after 200 -> ILOP:,OK
  phone    irda -> select 1 uart 1 receiver 1 mode 1 speed 115200 sent 3
  send     irtx=2 after 30 -> IRTX:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 4
  phone    clock run

a stop and a new start in between leave one chain of packets
  send     irpa=4,5 -> IRPA:,OK
  phone    clock hold
  send     irtx=2 after 5 -> IRTX:,OK
  send     irtx=0 after 1 -> IRTX:,OK
  send     irpa=4,5 after 1 -> IRPA:,OK
  send     irtx=2 after 315 -> IRTX:,OK
  phone    irda -> select 1 uart 1 receiver 0 mode 1 speed 115200 sent 10
  phone    clock run

without a port there is nothing to send with, and stopping is well
  send     irtx=1 | irtx=2 -> IRTX:,ERROR
  send     irtx -> IRTX:,OK

a stop that fails leaves the devices open, and the next parameters close them first
  send     irpa -> IRPA:,OK
  phone    fail irda CC0F
  send     irtx=0 -> IRTX:,ERROR
  phone    files HSL2 -> /dev/ttyHSL2 | files irda -> /dev/irda
  send     irtx=1 -> IRTX:,ERROR
  send     irpa -> IRPA:,OK
  phone    files HSL2 -> /dev/ttyHSL2 | files irda -> /dev/irda
  phone    fail irda CC11
  send     irtx=0 -> IRTX:,ERROR
  send     irpa -> IRPA:,OK
  phone    fail irda CC13
  send     irtx=0 -> IRTX:,ERROR
  send     irpa -> IRPA:,OK
  phone    fail irda CC15
  send     irtx=0 -> IRTX:,ERROR

a line that takes no bytes ends a packet after a second, and one that fails at once
  send     irpa=4,5 -> IRPA:,OK
  phone    fail write /dev/ttyHSL2 all eof | clock hold
  send     irtx=1
  phone    clock +990
  after    20 -> IRTX:,ERROR
  phone    clock run | fail off -> 0 faults were never reached
  phone    fail write /dev/ttyHSL2
  send     irtx=1 -> IRTX:,ERROR
  # half of what is left each time
  phone    fail write /dev/ttyHSL2 2 short
  send     irtx=1 -> IRTX:,OK
  phone    clock +10 | irda last -> 55AA00FF
  phone    fail irda CC10
  send     irtx=1 -> IRTX:,ERROR

values out of range touch nothing
  send     irtx=3 | irtx=-1 -> SYNTAX
  send     irtx=1,1 -> irtx      (0x0-0x2)                                         ,SYNTAX
  send     irtx=? -> IRTX:IrDA Static Transmit,irtx      (0x0-0x2)                                         ,OK
