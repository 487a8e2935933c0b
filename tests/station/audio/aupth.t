#: Is answered and does nothing.
#: aupth | `ERROR` and no line, whatever the values

every form
  #:
  send     aupth=0,1 -> ERROR
  send     aupth? -> ERROR
  send     aupth=? -> aupth     [(0-1),(0-4)[,(0-1)]]                             aupth(),ERROR
  phone    sound ->
