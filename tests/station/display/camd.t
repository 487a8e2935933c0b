# The camera's cover, which is moved by hand: its state is all there is.

its state is open on a phone without the switch
  send     camd=5
  expect   CAMD:0x1,OK
  send     camd?5,100
  expect   CAMD:0x1,OK

nothing moves it
  send     camd=0
  expect   CAMD:N/A,ERROR
  send     camd=4,50
  expect   CAMD:N/A,ERROR

other values are none
  send     camd
  expect   SYNTAX
  send     camd=6
  expect   SYNTAX
