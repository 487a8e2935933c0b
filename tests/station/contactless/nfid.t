#: Reads an identifier of the current contactless chip.
#: nfid=1 to nfid=6 | the PN65: identity parameter 1 to 6, the whole frame from its length byte on without its last
#:   byte. The second chip: the same parameters, the HCI bytes. Anything else is `ERROR`
#: nfid=7, nfid=8 | the second chip alone: the 8 bytes of its card side; the identity of pipe 2
#: The second chip wants its power switched on by hand before (`nfpc=1,1`). `No data` when an answer is empty.

the six parameters of the first chip, by a pipe that is made once
  send     nfid=1 -> NFID:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  #: The version of the software, 0A1C33, behind length, control byte, pipe and status.
  send     nfid=1 -> NFID:0x08,0xb7,0x83,0x80,0x0a,0x1c,0x33,0x9b,OK
  phone    pn65 recent 6 -> 08A4811005000552EE\n03C58EB4\n05AD83031EF6\n03C61586\n06B6830201581F\n03C79C97
  send     nfid=2 -> NFID:0x06,0xb8,0x83,0x80,0x02,0xfd,OK
  send     nfid=3 -> NFID:0x08,0x81,0x83,0x80,0x5e,0x06,0x81,0x4b,OK
  send     nfid=4 -> NFID:0x08,0x8a,0x83,0x80,0x48,0x56,0x54,0xf5,OK
  send     nfid=5 -> NFID:0x06,0x93,0x83,0x80,0x65,0x02,OK
  send     nfid=6 -> NFID:0x09,0x9c,0x83,0x80,0x03,0x04,0x11,0x90,0xd8,OK
  send     nfid=7 | nfid=0 -> NFID: ,ERROR
  phone    pn65 81100500 silent
  send     nfid=6 -> NFID:0x09,0xa5,0x83,0x80,0x03,0x04,0x11,0x90,0xab,OK

the count comes first, the label whether it is powered or not
  send     nfid -> NFID:Too few parameters,ERROR
  send     nfid=? -> NFID:Too few parameters,nfid      (1-3)                                             NFC Get ID,ERROR
  send     nfid=?1 -> NFID:NFC Get ID,nfid      (1-3)                                             NFC Get ID,OK
  send     nfid=1,2 -> nfid      (1-3)                                             NFC Get ID,SYNTAX

a pipe that couldn't be made or opened is made anew, and so it is behind a power down
  phone    speed 100
  send     nfpu -> NFPU: ,OK
  phone    pn65 8110 silent 1
  send     nfid=2 -> NFID: ,ERROR
  phone    pn65 8303 silent 1
  send     nfid=2 -> NFID: ,ERROR
  phone    pn65 840202 raw:00 1
  send     nfid=2 -> NFID:No data,ERROR
  send     nfpd -> NFPD: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfid=2 -> NFID:0x06,0xb7,0x83,0x80,0x02,0x04,OK

the identifiers of the second chip
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfid=1 -> NFID: ,ERROR
  send     nfpc=1,1 -> NFPC: ,OK
  send     nfid=1 -> NFID:0x89,0x80,0x31,0x32,0x33,OK
  # the created pipe is 9
  phone    tamiro recent 3 -> 5300070081100500055D\n5300040089036F\n530005008902016E
  send     nfid=6 -> NFID:0x89,0x80,0x36,0x37,0x38,OK
  send     nfid=7 -> NFID:0x01,0x2e,0x4c,0x5a,0x68,0x76,0x84,0x92,OK
  send     nfid=8 -> NFID:0x82,0x80,0x4a,0x4b,OK
  send     nfid=9 -> NFID: ,ERROR
  phone    tamiro 00FFFF 0102
  send     nfid=7 -> NFID: ,ERROR
  phone    tamiro lines -> cen 1 pon 1 tvdd 0 hsel 0 speed 460800
