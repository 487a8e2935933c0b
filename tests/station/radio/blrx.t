#: Measures the level of a Bluetooth carrier, which this phone's chip doesn't do.
#: blrx[=CH] | `-0` and `ERROR` on this phone

a level that isn't measured is 0 behind its minus
  #:
  send     blrx=3 -> BLRX:-0,ERROR
  send     blrx? | blrx=3, -> BLRX:-0,ERROR
  send     blrx=3,4 -> blrx      (0x00-0x4E)                                       CW test for rx(ch),SYNTAX
  send     blrx=? -> BLRX:Bluetooth CW for RX to measure RSSI.,blrx      (0x00-0x4E)                                       CW test for rx(ch),OK
  phone    hci recent -> none
