#: Sends Bluetooth packets on one channel.
#: bwtx[=CH[,PKT[,PAT[,MODE[,PWR[,LEN]]]]]] | CH 0 to 78, what is above is sent as 78; PKT the packet type, 0 to 8: DH1,
#:   DH3, DH5, 2-DH1, 2-DH3, 2-DH5, 3-DH1, 3-DH3, 3-DH5; PAT the payload's pattern, 0 to 4; MODE 0 or 1; PWR 0 to 15. LEN has no
#:   effect: the payload is as long as the type allows. Left out they are 0, 0, 4, 0, 9
#: The controller is reset first, and that alone can fail. A seventh value has all left at these. The answer is one blank
#: in all cases.

without values the chip's defaults are sent, which stand in another order than the line's values
  send     bwtx -> BWTX: ,OK
  # kind 4, channel 0 five times, pattern 4 as the chip's 3, type 04, 00, power 9, 01, address, mode 0, 27 bytes
  phone    hci recent -> 01030C00\n01030C00\n0104FC150400000000000304000901111111111111001B0000

each value has its place, the length none
  #:
  send     bwtx=0x20,1,1,1,7,5 -> BWTX: ,OK
  # 183 is 00B7
  phone    hci last -> 0104FC15042020202020010B00070111111111111101B70000
  send     bwtx=79,2,2 -> BWTX: ,OK
  phone    hci last -> 0104FC15044E4E4E4E4E020F00090111111111111100530100

the station's patterns and the chip's: 3 and 4 change places, others are 0
  send     bwtx=0,3,3 -> BWTX: ,OK
  phone    hci last -> 0104FC15040000000000042400090111111111111100360000
  send     bwtx=0,4,4 -> BWTX: ,OK
  phone    hci last -> 0104FC15040000000000032A000901111111111111006F0100
  send     bwtx=0,5,0 -> BWTX: ,OK
  phone    hci last -> 0104FC15040000000000002E00090111111111111100A70200
  send     bwtx=0,6,5 -> BWTX: ,OK
  phone    hci last -> 0104FC15040000000000002800090111111111111100530000

the last packet types, and one that there isn't
  send     bwtx=1,7 -> BWTX: ,OK
  # 552 is 0228
  phone    hci last -> 0104FC15040101010101032B00090111111111111100280200
  send     bwtx?10,8 -> BWTX: ,OK
  # 1021 is 03FD
  phone    hci last -> 0104FC15040A0A0A0A0A032F00090111111111111100FD0300
  send     bwtx=1,9 -> BWTX: ,OK
  phone    hci last -> 0104FC15040101010101030000090111111111111100000000

a value too many leaves all defaults
  send     bwtx=1,8,1,1,1,1,1 -> BWTX: ,OK
  phone    hci last -> 0104FC150400000000000304000901111111111111001B0000

what the controller says doesn't matter, but the reset must pass
  send     bthr -> BTHR: ,OK
  phone    hci 0104FC15 040E040104FC12 1
  send     bwtx=1 -> BWTX: ,OK
  phone    hci 01030C silent 1
  send     bwtx=1 -> BWTX: ,ERROR
  phone    hci last -> 01030C00

the help is one line
  send     bwtx=? -> BWTX:Bluetooth switched TX,bwtx      (0x00-0x4E),(0-8),(0-4),(0-1),(0-15),len          switch tx(ch,pkt,pat,mode,pwr,le,OK
