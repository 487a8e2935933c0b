#: Tests the coexistence of Bluetooth and WLAN, which this phone's chip doesn't do.
#: bwcx[=BYTE[,BYTE...]] | up to ten bytes, hexadecimal. An empty line and `NOT FOUND` on this phone

bytes or none, the operation isn't there
  #:
  send     bwcx -> BWCX:,NOT FOUND
  send     bwcx?1,ff | bwcx=1\*9{,0xA} -> BWCX:,NOT FOUND

more than ten bytes are too many
  send     bwcx=1\*10{,2} -> BWCX:Too many parameters,ERROR
  phone    shell 1 -> 0 echo 1 > /dev/wcnss_wlan
  send     bwcx=? -> BWCX:Bluetooth Coexistence test,bwcx                                                        BT Set/Get Coex,OK
  phone    hci recent -> none
