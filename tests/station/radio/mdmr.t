#: Resets the modem, which this phone doesn't do.
#: mdmr[=VALUE] | an empty line and `ERROR` on this phone

it is an error with a value and without
  #:
  send     mdmr -> MDMR:,ERROR
  send     mdmr?1 -> MDMR:,ERROR
  send     mdmr=1,2 -> mdmr      W                                                 modem_reset(val),SYNTAX
  send     mdmr=? -> MDMR:Reset modem,mdmr      W                                                 modem_reset(val),OK
