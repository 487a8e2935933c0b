#: Waits for a card of one kind before the PN65's antenna.
#: nfpl[=KIND[,TIME]] | KIND 0 is A, 1 is B, 2 is F, 0 when left out; TIME is in ms, up to 4294967295, 2000 when left out,
#:   and it blocks the station as long. 1 when one card came, 0 for none and for several; `ERROR` when another frame of it
#:   fails. The second chip has no such search: `NOT FOUND`
#: It ends all pipes of the chip, so that the identity (`nfid`) is to be had only behind a new start.

each kind for itself
  phone    speed 20
  send     nfpl=0 -> NFPL:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  send     nfpl -> NFPL:0,OK
  phone    tag a
  #: A card of kind A lies there:
  send     nfpl=0,2000 -> NFPL:1,OK
  send     nfpl=1,100 -> NFPL:0,OK
  phone    tag b
  send     nfpl=1,2000 -> NFPL:1,OK
  send     nfpl=2,100 -> NFPL:0,OK
  phone    tag f
  send     nfpl=2,2000 -> NFPL:1,OK
  # several cards are not one
  phone    tag f f
  send     nfpl=2,2000 -> NFPL:0,OK
  # no reader gate for another number
  send     nfpl=3,100 -> NFPL:0,OK
  send     nfrr=0x9810 -> NFRR:0xBC,OK
  send     nfpl=? -> NFPL:NFC Polling,nfpl      (0-2),[(0-0xFFFFFFFF)]                            NFC Polling,OK
  send     nfpl=1,2,3 -> NFPL:Too many parameters,ERROR

a card that comes while it waits, and one that comes too late
  send     nfpu -> NFPU: ,OK
  phone    clock hold
  send     nfpl=0,400
  phone    clock +300 | tag a | clock run
  expect   NFPL:1,OK
  # no time at all is no round of waiting, and a card needs 40 ms
  send     nfpl=0,0 -> NFPL:0,OK
  phone    tag none | clock hold
  send     nfpl=0,100 after 300 -> NFPL:0,OK

a poll that ended without a card is acknowledged too little by the next frame
  phone    speed 20
  send     nfpu -> NFPU: ,OK
  send     nfpl=0,20 -> NFPL:0,OK
  phone    pn65 recent 14 -> 03C023E3\n05808350446A\n0588830427B8\n03C1AAF2\n069181110379EE\n03C231C0\n059A8204D291\n03C3B8D1\n06A3811102748A\n03C407A5\n08AC8110200090A836\n03C58EB4\n05B5820391AC\n03C61586
  # a second one takes both off: its next frame acknowledges one less again, the one behind that is right
  send     nfpl=0,20 -> NFPL:0,OK
  phone    pn65 recent 13 -> 059A8350AB9C\n05A183040227\n03C3B8D1\n06AB811103257E\n03C407A5\n05B48204F282\n03C58EB4\n06BD81110297E7\n03C61586\n08868110200090C69A\n03C79C97\n058F82034559\n03C023E3

a frame that fails, and the second chip
  phone    speed 50
  send     nfpu -> NFPU: ,OK
  phone    pn65 8114 silent 1
  send     nfpl=0,10 -> NFPL: ,ERROR
  phone    pn65 8304 silent 1
  send     nfpl=0,10 -> NFPL: ,ERROR
  send     nfsl=2 -> NFSL: ,OK
  send     nfpl=0,10 -> NFPL: ,NOT FOUND
