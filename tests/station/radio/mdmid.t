#: Reads the modem's number, which this phone doesn't tell.
#: mdmid | an empty line and `ERROR` on this phone

it is an error, takes no value, and has a help
  #:
  send     mdmid -> MDMID:,ERROR
  send     mdmid? -> MDMID:,ERROR
  send     mdmid=1 -> mdmid                                                       modem_id,SYNTAX
  send     mdmid=? -> MDMID:Read modem id,mdmid                                                       modem_id,OK
