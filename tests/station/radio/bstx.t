#: Sends a Bluetooth carrier on one channel.
#: bstx[=CH[,DAT[,RATE[,PAT[,PWR]]]]] | CH 0 to 78, what is above is sent as 78; DAT 0 and 1 are two kinds of modulated
#:   carrier, any other is the third; PWR 0 to 15. RATE and PAT have no effect. Left out they are 0, 2, 0, 0, 9
#: The controller is reset first. A sixth value has all five left at these. The answer is one blank in all cases. `bthr`
#: ends it.

without values the chip's defaults are sent, behind a reset
  send     bstx -> BSTX: ,OK
  # kind 5, channel 0, power 9, data 2
  phone    hci recent -> 01030C00\n01030C00\n0104FC09050009040100000000

values replace the defaults in their order; the data's three kinds, the channel's end, rate and pattern without effect
  #:
  send     bstx=0x10,0 -> BSTX: ,OK
  phone    hci last -> 0104FC09051009070100000000
  send     bstx?78,1,3,7,0 -> BSTX: ,OK
  phone    hci last -> 0104FC09054E00070101010101
  send     bstx=79,3,0,0,15 -> BSTX: ,OK
  phone    hci last -> 0104FC09054E0F040100000000
  send     bstx=-1,2 -> BSTX: ,OK
  phone    hci last -> 0104FC09054E09040100000000

a value too many leaves all defaults
  send     bstx=1,0,0,0,4,5 -> BSTX: ,OK
  phone    hci last -> 0104FC09050009040100000000

a failing reset sends nothing more, a failing test is told
  send     bthr -> BTHR: ,OK
  phone    hci 01030C 040E0401030C01 1
  send     bstx=1 -> BSTX: ,ERROR
  phone    hci last -> 01030C00
  phone    hci 0104FC0905 040E040104FC12 1
  send     bstx=1 -> BSTX: ,ERROR
  phone    hci 0104FC0905 silent 1
  send     bstx=1 -> BSTX: ,ERROR
  send     bstx=1 -> BSTX: ,OK

the help is one line
  send     bstx=? -> BSTX:Bluetooth static TX,bstx      (0x00-0x4E),(0-3),(0-3),(0-7),(0-15)              stat tx(ch,dat,rate,pat,pwr),OK
