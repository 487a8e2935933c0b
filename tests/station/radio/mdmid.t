#: Reads the modem's number, which this phone doesn't tell.
#: mdmid | an empty line and `ERROR` on this phone

it is an error, takes no value, and has a help
  #:
  send     mdmid
  expect   MDMID:,ERROR
  send     mdmid?
  expect   MDMID:,ERROR
  send     mdmid=1
  expect   mdmid                                                       modem_id,SYNTAX
  send     mdmid=?
  expect   MDMID:Read modem id,mdmid                                                       modem_id,OK
