#: Chooses the contactless chip that all other commands mean.
#: nfsl=1, nfsl=2 | the PN65, the second chip. Another number, or none, chooses nothing. Answers with one blank and is always
#:   `OK`. Power the former chip down before: nothing is stopped here

the two chips by number, and numbers of none
  send     nflt -> NFLT: ,NOT FOUND
  #:
  send     nfsl=2 -> NFSL: ,OK
  send     nflt -> NFLT: ,OK
  send     nfsl=0 | nfsl=3 | nfsl -> NFSL: ,OK
  send     nflt -> NFLT: ,OK
  send     nfsl?1 -> NFSL: ,OK
  send     nflt -> NFLT: ,NOT FOUND
  send     nfsl=?2 -> NFSL:NFC Chip Select,nfsl      (0-1)                                             NFC Chip Select,OK
  send     nflt -> NFLT: ,NOT FOUND
