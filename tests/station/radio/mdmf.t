#: Blows the modem's fuses, which this phone doesn't do.
#: mdmf=BYTE[,BYTE...] | an empty line and `ERROR` on this phone

it is an error with data and without
  send     mdmf -> MDMF:,ERROR
  #:
  send     mdmf=1, 2,0xFF -> MDMF:,ERROR
  send     mdmf?7\*3000{,7} -> MDMF:,ERROR
  phone    diag last -> none
  send     mdmf=? -> MDMF:Fuse modem,mdmf      ...                                               modem_fuse(data),OK
