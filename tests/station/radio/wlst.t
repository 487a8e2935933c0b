#: Runs the self test of the WLAN chip, which this phone's doesn't have.
#: wlst[=BYTE[,BYTE...]] | up to twenty bytes, decimal. One blank and `NOT FOUND` on this phone
#: A transmission is stopped first.

with power or without, bytes or none
  #:
  send     wlst -> WLST: ,NOT FOUND
  send     wlst?1\*19{,10} -> WLST: ,NOT FOUND
  send     wlst=1\*20{,10} -> WLST:Too many parameters,ERROR
  send     wlst=? -> WLST:WLAN Selftest,wlst                                                        run selftest(...),OK

a transmission is stopped first; one that can't be stopped is an error
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  phone    fail wlanftmtest -s
  send     wlst -> WLST: ,ERROR
  send     wlst -> WLST: ,NOT FOUND
  phone    shell 1 -> 0 wlanftmtest -s
