#: Radio functions of the second contactless chip, which wants `nfpc=1,1` before.
#: nfrf=0,A,B | parameters 15 and 16; `nfrf=4,A,B` parameters 5 and 6. Each takes its place in the block or, when
#:   it has none, the first free one
#: nfrf=1,A | the low 6 bits of parameter 14; the variant above them stays
#: nfrf=2,A,B | the two bytes behind the pairs
#: nfrf=3,A | register 4, 0 or 1
#: nfrf=5,ROUNDS | looks for a card as often: how many rounds found one, in percent. Green is lit for a round that did,
#:   red for one that didn't, and green in the end
#: nfrf=6 | the 30 bytes of parameters: 14 pairs of a number and a value, and two bytes
#: nfrf=7,ROUNDS,HANDSHAKE | the same as 5 through the HCI side, with the interrupt handshake when HANDSHAKE is 1
#: nfrf=8,ON | the radio setting on (1) or off (0)
#: Another function or number of values is `SYNTAX` behind one blank. On the PN65 all are `ERROR`.

parameters find their places
  send     nfrf=6 -> NFRF:NFC is not yet powered up,ERROR
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfrf=6 -> NFRF: ,ERROR
  send     nfpc=1,1 -> NFPC: ,OK
  send     nfrf=0,0x21,0x22 | nfrf=4, 0x55, 0x56 | nfrf=2,0x12,0x34 -> NFRF: ,OK
  phone    tamiro block -> 01110222055506560E150F21102200000000000000000000000000001234
  #: The parameters, as the chip has them:
  send     nfrf=6 -> NFRF:0x01,0x11,0x02,0x22,0x05,0x55,0x06,0x56,0x0e,0x15,0x0f,0x21,0x10,0x22\*14{,0x00},0x12,0x34,OK
  # the top two bits of parameter 14 are the variant's
  phone    tamiro block 0E9501110222050006000700080009000A000B000C000D000F001011C33C
  send     nfrf=1,0xFF -> NFRF: ,OK
  # 14 pairs are taken: a new number finds no place, and the block is written all the same
  send     nfrf=0,7,0x12 -> NFRF: ,OK
  phone    tamiro block -> 0EBF01110222050006000700080009000A000B000C000D000F071012C33C
  # a free pair is taken only by a number that has none yet
  phone    tamiro block 00000F01100200\*23{00}
  send     nfrf=0,0x31,0x32 | nfrf=4,0x41,0x42 -> NFRF: ,OK
  phone    tamiro block -> 05410F3110320642\*22{00}
  send     nfrf=3,1 -> NFRF: ,OK
  phone    tamiro reg 4 -> 01
  send     nfrf=3,2 -> NFRF: ,ERROR

a polling series tells how many rounds found a card
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfpc=1,1 -> NFPC: ,OK
  send     nfrf=5,3 -> NFRF:0.00,OK
  phone    tag a f
  #: A card of kind F before the antenna:
  send     nfrf=5,100 -> NFRF:100.00,OK
  file     /sys/class/leds/green/brightness -> 255
  file     /sys/class/leds/red/brightness -> 0
  phone    tamiro CC11 CD110001 2
  send     nfrf=5,3 -> NFRF:33.33,OK
  phone    tamiro recent 1 -> 00FA0BCC1164000600FFFF0000980D00
  send     nfrf=5,0 -> NFRF: ,ERROR
  phone    fail open /sys/class/leds/red
  send     nfrf=5,3 -> NFRF: ,ERROR

while a series runs its last round shows
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfpc=1,1 -> NFPC: ,OK
  phone    clock hold | tag f
  send     nfrf=5,2
  phone    clock +25
  file     /sys/class/leds/green/brightness -> 20
  file     /sys/class/leds/red/brightness -> 0
  phone    tag none | clock run
  expect   NFRF:50.00,OK

the same through the other side of the chip, with the handshake and without
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfpc=1,1 -> NFPC: ,OK
  phone    tag v
  send     nfrf=7,4,0 -> NFRF:100.00,OK
  # one round, its end, the pipe closed and deleted: the sums turned round
  phone    tamiro recent 4 -> 53000A00896181011F820101E4\n53000400896210\n5300040089046E\n530005008111095F
  phone    tag none
  send     nfrf=7,4,1 -> NFRF:0.00,OK
  phone    tamiro lines -> cen 1 pon 1 tvdd 0 hsel 0 speed 460800
  # an interrupt line that doesn't follow: every round fails, the pipe is deleted all the same
  phone    gpio 78 1 | tag b
  send     nfrf=7,2,1 -> NFRF:0.00,OK
  phone    gpio 78 free | tamiro 8111 silent
  send     nfrf=7,1,0 -> NFRF: ,ERROR
  send     nfid=1 -> NFID:0x8a,0x80,0x31,0x32,0x33,OK

the radio setting is a bit of register 20 and a row through pipe 2
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfpc=1,1 -> NFPC: ,OK
  phone    tamiro reg 14 21
  send     nfrf=8,1 -> NFRF: ,OK
  phone    tamiro reg 14 -> 29 | tamiro recent 1 -> 53000C00824B020E00346000000081
  send     nfrf=8,0 -> NFRF: ,OK
  phone    tamiro recent 1 -> 53000C00824B020E003440000000A1
  send     nfrf=8,2 -> NFRF: ,ERROR

the number of values has to fit
  send     nfrf -> NFRF:Too few parameters,ERROR
  send     nfrf=?6 -> NFRF:NFC RF function,nfrf      (0-6),(0-0xFFFF),(0-0xFFFF)                       NFC RF function,OK
  send     nfpu -> NFPU: ,OK
  send     nfrf=9 | nfrf=9,1 | nfrf=6,1 | nfrf=0,1 | nfrf=5,1,2 | nfrf=7,1 -> NFRF: ,SYNTAX
  send     nfrf=5,1 -> NFRF: ,ERROR
