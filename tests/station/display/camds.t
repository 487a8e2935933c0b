#: Tells the state of the camera's cover.
#: camds | as `camd=5`

the state
  #:
  send     camds -> CAMDS:0x1,OK
  send     camds? -> CAMDS:0x1,OK

it takes no value
  send     camds=1 -> camds                                                       status,SYNTAX
