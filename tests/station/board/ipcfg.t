#: Sets the last number of the phone's IP address, which this board can't: it has no network of its own.
#: ipcfg=NUMBER | 0 to 255; always `ERROR` behind one blank

the board can't set it, and a missing value is a syntax error
  #:
  send     ipcfg=3 -> IPCFG: ,ERROR
  send     ipcfg -> IPCFG: ,SYNTAX

the help is one line
  send     ipcfg=? -> IPCFG:Set last digits of IP address,ipcfg     (0-255)                                           ipcfg(ipaddr),OK
