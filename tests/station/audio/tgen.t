#: Is answered and does nothing; tones run through [`aloop`](#aloop).
#: tgen | an empty line and `ERROR`, whatever the values

every form
  #:
  send     tgen=1 -> TGEN:,ERROR
  send     tgen? -> TGEN:,ERROR
  send     tgen=? -> TGEN:,tgen      (0-1)[,(0x1-0xFFFF),[(0-5)]                       tgen(),ERROR
  phone    sound ->
