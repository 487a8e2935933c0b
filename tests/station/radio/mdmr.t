#: Resets the modem, which this phone doesn't do.
#: mdmr[=VALUE] | an empty line and `ERROR` on this phone

it is an error with a value and without
  #:
  send     mdmr
  expect   MDMR:,ERROR
  send     mdmr?1
  expect   MDMR:,ERROR
  send     mdmr=1,2
  expect   mdmr      W                                                 modem_reset(val),SYNTAX
  send     mdmr=?
  expect   MDMR:Reset modem,mdmr      W                                                 modem_reset(val),OK
