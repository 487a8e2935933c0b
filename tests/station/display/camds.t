# The camera cover's state by a command of its own.

the state
  send     camds
  expect   CAMDS:0x1,OK
  send     camds?
  expect   CAMDS:0x1,OK

it takes no value
  send     camds=1
  expect   camds                                                       status,SYNTAX
