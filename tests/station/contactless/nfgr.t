#: Reads a status line of the second contactless chip.
#: nfgr=1, nfgr=2, nfgr=3 | the level of status line 1, status line 2 or the interrupt line. Another number, or a line that
#:   can't be read, is 0 and `ERROR`; on the PN65 it is 0 and `NOT FOUND`

each line by its number
  send     nfgr=1 -> NFGR:0,NOT FOUND
  send     nfsl=2 -> NFSL: ,OK
  #:
  send     nfgr=1 -> NFGR:0,OK
  send     nfgr=2 -> NFGR:1,OK
  phone    gpio 569 1
  send     nfgr=1 -> NFGR:1,OK
  phone    gpio 77 0
  send     nfgr=2 | nfgr=3 -> NFGR:0,OK
  phone    gpio 59 1
  send     nfgr=3 -> NFGR:1,OK
  send     nfgr=4 | nfgr -> NFGR:0,ERROR
  phone    fail read /dev/gpio569
  send     nfgr=1 -> NFGR:0,ERROR
  send     nfgr=? -> NFGR:NFC GPIO Read,nfgr      (1-2)                                             NFC GPIO Read,OK
