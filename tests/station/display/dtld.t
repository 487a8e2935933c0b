#: Selects the touch device that is in use.
#: dtld=DEVICE | 1 or 2, which is started; this phone has no second one, which shows once the first is closed
#: dtld=0 | closes the device
#: Answers with one blank, `ERROR` when the device doesn't start.

the device goes and comes
  send     dtld=0 -> DTLD: ,OK
  #:
  send     dtld=1 -> DTLD: ,OK
  send     dtid=4 -> DTID:0x460,OK

there is no second device, which shows once the first is closed
  send     dtld=1 | dtld=2 | dtld=0 -> DTLD: ,OK
  send     dtld=2 -> DTLD: ,ERROR
  # 3 selects nothing, so 2 stays
  send     dtld=3 -> DTLD: ,ERROR
  send     dtld=1 -> DTLD: ,OK

values
  send     dtld | dtld=-1 -> DTLD: ,SYNTAX
  send     dtld=? -> DTLD:Load and select touch device,dtld      1-2                                               dtld(action),OK
