#: Tests WLAN reception by counting packets.
#: wsrx=1,CH | starts on channel 1 to 252, or clears the counter when it is the same again; one blank
#: wsrx[=0[,EXPECTED]] | packets received, 0, and the percentage of those expected that is missing; 0 without EXPECTED.
#:   More packets than expected are 100 and `ERROR`
#: Before the power-up it answers `OK` and does nothing. A transmission is stopped first.

the first start sets the channel, a second on the same one clears the counter
  send     wlpu -> WLPU: ,OK
  #:
  send     wsrx=1,6 -> WSRX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 6 -w 0 -a
  send     wsrx?1,6 -> WSRX: ,OK
  phone    shell 1 -> 0 wlanftmtest -m
  send     wsrx=1,252,9 -> WSRX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 252 -w 0 -a

a channel outside 1 to 252 fails without a word to the tool
  send     wlpu -> WLPU: ,OK
  send     wsrx=1,0 | wsrx=1,253 | wsrx=1,-1 -> WSRX: ,ERROR
  phone    shell 1 -> 0 wlanftmtest -e

packets received, and in percent what is missing of those that were expected
  send     wlpu -> WLPU: ,OK
  send     wsrx -> WSRX:941,0,0,OK
  phone    shell 1 -> 0 wlanftmtest -b
  #:
  send     wsrx=0,1000
  # 59 of 1000
  expect   WSRX:941,0,5,OK
  send     wsrx=0,941 -> WSRX:941,0,0,OK
  # more than expected
  send     wsrx=0,940 -> WSRX:941,0,100,ERROR
  phone    tool wlanftmtest -b 120
  send     wsrx=0,100 -> WSRX:120,0,100,ERROR
  phone    tool wlanftmtest -b 10
  send     wsrx=0,4294967295 -> WSRX:10,0,99,OK
  phone    tool wlanftmtest -b -7
  send     wsrx=0,100 -> WSRX:0,0,100,OK

a tool that fails or leaves no number shows nothing received
  send     wlpu -> WLPU: ,OK
  phone    fail wlanftmtest -b
  send     wsrx=0,10 -> WSRX:0,0,0,ERROR
  phone    tool wlanftmtest -b none
  send     wsrx=0,10 -> WSRX:0,0,0,ERROR
  phone    fail wlanftmtest -c
  send     wsrx=1,6 -> WSRX: ,ERROR
  phone    fail wlanftmtest -m
  send     wsrx=1,6 -> WSRX: ,ERROR
  phone    fail off -> 0 faults were never reached
  send     wsrx=1,6 -> WSRX: ,OK

a burst before it is stopped, and ended once
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  send     wsrx=1,6 -> WSRX: ,OK
  phone    shell 3 -> 0 wlanftmtest -s\n0 wlanftmtest -q\n0 wlanftmtest -c 6 -w 0 -a
  send     wsrx=1,7 -> WSRX: ,OK
  phone    shell 2 -> 0 wlanftmtest -c 6 -w 0 -a\n0 wlanftmtest -c 7 -w 0 -a
  send     wbtx -> WBTX: ,OK
  phone    fail wlanftmtest -s
  send     wsrx=1,6 -> WSRX: ,ERROR
  phone    fail wlanftmtest -q
  send     wsrx=1,6 -> WSRX: ,ERROR
  phone    fail off -> 0 faults were never reached
  # that end isn't asked for again
  send     wsrx=1,6 -> WSRX: ,OK
  phone    shell 2 -> 0 wlanftmtest -s\n0 wlanftmtest -c 6 -w 0 -a

before the power-up it is well and silent; wrong values are a syntax error
  send     wsrx=0,0 -> OK
  send     wlpu -> WLPU: ,OK
  send     wsrx=0,0 | wsrx=1 | wsrx=2,6 -> WSRX: ,SYNTAX
  send     wsrx=? -> WSRX:WLAN Static RX,wsrx      (0,1)(1-14)                                       rx(),OK
