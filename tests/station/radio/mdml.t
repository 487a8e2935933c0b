#: Switches the modem's log, for which this phone has no driver.
#: mdml=0 | log off: one blank and `ERROR` on this phone, as all that follow
#: mdml=1,TIMESTAMP | log on
#: mdml=2,PATH | sets the mask
#: mdml=3[,TIMESTAMP] | removes logs
#: Values that don't fit are `SYNTAX` without a line.

what could be done fails with a blank
  #:
  send     mdml=0 -> MDML: ,ERROR
  send     mdml=1,2013-07-29 | mdml?2,/system/mask.cfg | mdml=3 | mdml=3,a,b -> MDML: ,ERROR

a text that is missing, and a number that means nothing, are a syntax error without a line
  send     mdml=1 | mdml=2 | mdml=4,x | mdml=-1 -> SYNTAX
  send     mdml | mdml? -> ERROR

the help has five lines
  send     mdml=?
  expect   MDML:Control modem logs,MDML:0              = Turn modem logs off,MDML:1,<timestamp>  = Turn modem logs on,MDML:2,<path>       = Set log mask,MDML:3,<timestamph> = Remove log,
  + mdml      0x0-0x03[,(...)}                                  MDML(option),OK
