#: Downloads files to the Bluetooth chip; this phone's needs none.
#: btfd=1[,ACT] | ACT 1 to 3 is one of the downloads, 0 all of them; done at once
#: btfd=5 | reads the chip's configuration and drops it; `ERROR` even then
#: The answer is one blank in all cases; other modes are `ERROR`.

each download, and all of them, pass without a word to the controller
  #:
  send     btfd=1 -> BTFD: ,OK
  send     btfd=1,1 | btfd=1,2 | btfd?1,3 -> BTFD: ,OK
  send     btfd=1,4 -> BTFD: ,ERROR
  phone    hci recent -> none

reading the configuration ends in an error all the same, other modes do nothing
  send     btfd=5 -> BTFD: ,ERROR
  phone    hci recent -> 01030C00\n01F6FC00
  # shorter than its own head
  phone    hci 01F6FC00 040E0301F6FC
  send     btfd=5 | btfd | btfd=4,1 -> BTFD: ,ERROR
  phone    hci recent -> 01030C00\n01F6FC00\n01F6FC00

the help is one line
  send     btfd=? -> BTFD:Download bluetooth files to chip,btfd      (0-5),(0-4)                                       fwdl(mode,act),OK
