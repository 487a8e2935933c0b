#: Tests the coexistence of WLAN and Bluetooth, which this phone's chip doesn't do.
#: wbcx[=BYTE[,BYTE...]] | up to ten bytes, hexadecimal. An empty line and `NOT FOUND` on this phone
#: A transmission is stopped first.

with power or without, bytes or none
  send     wbcx=1 -> WBCX:,ERROR
  send     wlpu -> WLPU: ,OK
  #:
  send     wbcx -> WBCX:,NOT FOUND
  send     wbcx?1\*9{,0xA} -> WBCX:,NOT FOUND
  send     wbcx=1\*10{,2} -> WBCX:Too many parameters,ERROR
  send     wbcx=? -> WBCX:Wlan Coexistence test,wbcx                                                        test coex(...),OK

a transmission is stopped first; one that can't be stopped is an error
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  phone    fail wlanftmtest -s
  send     wbcx -> WBCX: ,ERROR
  send     wbcx -> WBCX:,NOT FOUND
  phone    shell 1 -> 0 wlanftmtest -s
