#: Measures the level of a WLAN carrier.
#: wlrx=1,CH | starts on a channel; one blank
#: wlrx[=0] | the level in dBm with two digits behind the point, in steps of an eighth
#: A transmission is stopped first.

a channel is set, unjudged, and the level read in eighths of a dBm
  send     wlpu -> WLPU: ,OK
  #:
  send     wlrx=1,11 -> WLRX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 11 -a
  #:
  send     wlrx
  # 209 - 256
  expect   WLRX:-47.00,OK
  phone    shell 1 -> 0 wlanftmtest -x
  send     wlrx?9,300 -> WLRX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 300 -a
  # a static test on this channel only clears the counter then
  send     wsrx=1,300 -> WSRX: ,OK
  phone    shell 1 -> 0 wlanftmtest -m

a level below -100 is asked for ten times at most
  send     wlpu -> WLPU: ,OK
  phone    tool wlanftmtest -x 155 | calls on
  send     wlrx=0 -> WLRX:-101.00,OK
  phone    shell 11 -> 0 wlanftmtest -e\*10{\n0 wlanftmtest -x}
  phone    tool wlanftmtest -x 156
  send     wlrx=0 -> WLRX:-100.00,OK
  phone    shell 2 -> 0 wlanftmtest -x\n0 wlanftmtest -x
  phone    calls off
  # 8 times 2147483391 in 16 bits: -2056
  phone    tool wlanftmtest -x 2147483647
  send     wlrx=0 -> WLRX:-257.00,OK
  # 8 times 4000 above 256 has 32000
  phone    tool wlanftmtest -x 4256
  send     wlrx=0 -> WLRX:4000.00,OK

a tool that fails, and no number, are errors
  send     wlpu -> WLPU: ,OK
  phone    fail wlanftmtest -x
  send     wlrx -> WLRX: ,ERROR
  phone    tool wlanftmtest -x none
  send     wlrx -> WLRX: ,ERROR
  phone    fail wlanftmtest -c
  send     wlrx=1,11 -> WLRX: ,ERROR

a transmission is stopped first; one that can't be stopped is an error
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  phone    fail wlanftmtest -s
  send     wlrx=1,11 -> WLRX: ,ERROR
  send     wlrx=1,11 -> WLRX: ,OK
  phone    shell 3 -> 0 wlanftmtest -s\n0 wlanftmtest -q\n0 wlanftmtest -c 11 -a

before the power-up it is an error and silent; a start wants a channel
  send     wlrx -> ERROR
  send     wlpu -> WLPU: ,OK
  send     wlrx=1 -> WLRX: ,SYNTAX
  send     wlrx=? -> WLRX:WLAN RX CW RSSI,wlrx      (0,1)(1-14)                                       rx(),OK
