# The modem's reset, which this board doesn't have.

it is an error with a value and without
  send     mdmr
  expect   MDMR:,ERROR
  send     mdmr?1
  expect   MDMR:,ERROR
  send     mdmr=1,2
  expect   mdmr      W                                                 modem_reset(val),SYNTAX
  send     mdmr=?
  expect   MDMR:Reset modem,mdmr      W                                                 modem_reset(val),OK
