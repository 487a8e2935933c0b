#: Reads a WLAN calibration item from the persistent units.
#: wlcg=ITEM | its seven words, hexadecimal; seven zeros for one that isn't there. One of another size is one blank and
#:   `ERROR`
#: Needs no power-up and disturbs no transmission.

the words of a unit, low byte first
  phone    unit 80001234 0100000002000000030000000400000005000000060000007856F4DE
  #:
  send     wlcg=0x1234 -> WLCG:0x1,0x2,0x3,0x4,0x5,0x6,0xdef45678,OK
  send     wlcg?4660 -> WLCG:0x1,0x2,0x3,0x4,0x5,0x6,0xdef45678,OK

a unit that isn't there is seven zeros, also one beyond reach
  send     wlcg=4661 | wlcg=70000 | wlcg=-1 -> WLCG:0x0,0x0,0x0,0x0,0x0,0x0,0x0,OK

a unit of another size, or one that can't be read, is an error
  phone    unit 80001234 01000000020000000300000004000000050000000600000007000000FF
  send     wlcg=0x1234 -> WLCG: ,ERROR
  phone    unit 80001234 010000000200000003000000040000000500000006000000070000
  send     wlcg=0x1234 -> WLCG: ,ERROR
  phone    unit 80001234 01000000020000000300000004000000050000000600000007000000
  phone    fail auxnvq_read_unit
  send     wlcg=0x1234 -> WLCG: ,ERROR
  send     wlcg=0x1234 -> WLCG:0x1,0x2,0x3,0x4,0x5,0x6,0x7,OK

a transmission goes on, and no power is needed; one value is wanted
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  send     wlcg=1 -> WLCG:0x0,0x0,0x0,0x0,0x0,0x0,0x0,OK
  phone    shell 1 -> 0 wlanftmtest -A -c 1 -r 3 -p 4 -i 200 -l 1000 -w 0 -g 25 -o 0 -G 1
  send     wlcg -> SYNTAX
  send     wlcg=1,2 -> wlcg      (0-65000)                                         wlcg(item),SYNTAX
  send     wlcg=? -> WLCG:Retrieve WLAN calibration items,wlcg      (0-65000)                                         wlcg(item),OK
