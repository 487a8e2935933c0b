#: The antenna self test of the PN65.
#: nfst[=P1[,P2...P8]] | up to eight parameters of one byte in place of the defaults 3,5,14,17,17,3,45,39: three of the test
#:   itself, three levels (registers 9BF5 to 9BF7) and the registers 989F and 989D. Answers with the four bytes that the
#:   chip measured, which the station judges; `Data missing` when there are none. A ninth parameter is `SYNTAX`, a frame
#:   that fails `ERROR`, and the second chip has no self test: `NOT FOUND`

four measured bytes, and what was set up for them
  send     nfst -> NFST:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  #:
  send     nfst -> NFST:0x2e,0x51,0x74,0x97,OK
  phone    pn65 reg 9CA0 -> 10 | pn65 reg 9CA3 -> 10 | pn65 reg 9CA6 -> 10 | pn65 reg 9CA7 -> 07
  phone    pn65 reg 9CA8 -> 01 | pn65 reg 989F -> 2D | pn65 reg 989D -> 27 | pn65 reg 989E -> 3F
  phone    pn65 reg 9BF5 -> 11 | pn65 reg 9BF6 -> 11 | pn65 reg 9BF7 -> 03
  send     nfst=1,2,0x103,4,5,6,7,8 -> NFST:0x2e,0x51,0x74,0x97,OK
  phone    pn65 reg 989F -> 07 | pn65 reg 989D -> 08 | pn65 reg 9BF5 -> 04 | pn65 reg 9BF6 -> 05
  phone    pn65 reg 9BF7 -> 06
  # 12 numbered frames of the start and twice 16 of the test: the last has number 43 modulo 8
  phone    pn65 recent 2 -> 099B8220010203FF508B\n03C407A5
  send     nfst=1,2,3,4,5,6,7,8,9 -> NFST: ,SYNTAX
  send     nfst=?1 -> NFST:NFC Self Test,nfst      [(0-0xFF),(0-0xFF),(0-0xFF),(0-0xFF),(0-0xFF),(0-0xFF)]NFC Self Test,OK

a frame that fails ends the test, and an answer of four bytes it must be
  phone    speed 50
  send     nfpu -> NFPU: ,OK
  phone    pn65 8220 82802E5174 1
  send     nfst -> NFST: ,ERROR
  phone    pn65 823F009CA4 silent 1
  send     nfst -> NFST: ,ERROR
  phone    pn65 reg 9CA3 -> 10
  phone    pn65 8220 8280AABBCCDD 1
  send     nfst -> NFST:0xaa,0xbb,0xcc,0xdd,OK

the second chip has none
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfst -> NFST: ,NOT FOUND
