#: Blows the modem's fuses, which this phone doesn't do.
#: mdmf=BYTE[,BYTE...] | an empty line and `ERROR` on this phone

it is an error with data and without
  send     mdmf
  expect   MDMF:,ERROR
  #:
  send     mdmf=1, 2,0xFF
  expect   MDMF:,ERROR
  send     mdmf?7\*3000{,7}
  expect   MDMF:,ERROR
  phone    diag last -> none
  send     mdmf=?
  expect   MDMF:Fuse modem,mdmf      ...                                               modem_fuse(data),OK
