#: Selects the reception circuit, and its path, for the `isdb` commands that follow.
#: issl=CIRCUIT[,PATH] | CIRCUIT 0 to 5, PATH 0 wide or 1 narrow. Circuits 2 and 3 take any path, or none; 0, 1, 4 and 5
#:   need one: `ERROR` without a result line otherwise
#: issl?CIRCUIT[,PATH] | selects without a check and answers one blank
#: What is said stays selected whatever the answer. At the start nothing is, which is path 255, too: lock (`isdb=8`) wants
#: a path even on circuit 2.

a circuit that is known, with a path where it needs one
  #: The wide path of circuit 5:
  send     issl=5,0 -> ISSL:,OK
  send     issl=0,1 | issl=1,0 | issl=4,1 | issl=2,77 | issl=3 -> ISSL:,OK

what isn't known is refused without a text, and selected all the same
  send     issl | issl=0 | issl=5,2 -> ERROR
  send     issl=2 -> ISSL:,OK
  send     isdb=1,20 -> ISDB:0x14,OK
  send     issl=9 -> ERROR
  send     isdb=1,20 -> ISDB:ISDB-T Chip is not selected yet,ERROR

values of the other two forms select, too
  send     issl?2 -> ISSL: ,OK
  send     isdb=1,62 -> ISDB:0x3e,OK
  send     issl=?5,1 -> ISSL:ISDB Chip Select,issl      (0-2)[(1-2)]                                      issl(),OK
  send     isdb=1,68 -> ISDB:0x44,OK
  send     issl=? -> ISSL:ISDB Chip Select,issl      (0-2)[(1-2)]                                      issl(),OK
  send     isdb=1,68 -> ISDB:0x44,OK
