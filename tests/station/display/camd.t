#: Tells the state of the camera's cover.
#: camd=5 | `0x1` open, `0x0` closed; on this board, which has no switch for it, always `0x1`
#: camd=0 to 4 | would move a cover with a motor: `N/A` and `ERROR`

its state is open on a phone without the switch
  #:
  send     camd=5 -> CAMD:0x1,OK
  send     camd?5,100 -> CAMD:0x1,OK

nothing moves it
  send     camd=0 | camd=4,50 -> CAMD:N/A,ERROR

other values are none
  send     camd | camd=6 -> SYNTAX
