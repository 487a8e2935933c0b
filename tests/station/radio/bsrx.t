#: Tests Bluetooth reception.
#: bsrx=1,PKT,CH[,PAT] | starts: packet type 0 to 8 (as for `bwtx`), channel (above 78 is 78); PAT has no effect. One blank
#: bsrx=0,PKT | what has come: packets, a second count, the bit error rate in percent, bit errors. PKT is the type that the
#:   rate is reckoned with
#: A failure is one blank and `ERROR`, too few values one blank and `SYNTAX`.

a test is started behind a reset, with the pattern, the power and the mode that the chip wants
  send     bsrx=1,2,0x20 -> BSRX: ,OK
  # kind 6, channel 20 five times, pattern 4, type 0F, 00, power 9, 01, address, mode 0, 339 bytes
  phone    hci recent -> 01030C00\n01030C00\n0104FC15062020202020040F00090111111111111100530100
  send     bsrx?1,9,79,3 -> BSRX: ,OK
  phone    hci last -> 0104FC15064E4E4E4E4E040000090111111111111100000000

the statistics are sums over five blocks, the rate the share of wrong bits in percent
  #:
  send     bsrx=1,0,3 -> BSRX: ,OK
  #:
  send     bsrx=0,0
  # 410 + 310 + 210 + 110 + 10, 400 + 300 + 200 + 100 + 9, 11 + 7 + 5 + 3 + 1; 27 / (27 * 1050) * 100
  expect   BSRX:0x41A,0x3F1,0.095238,0x1B,OK
  phone    hci last -> 0104FC0102
  # 27 / (1021 * 1050) * 100
  send     bsrx=0,8 -> BSRX:0x41A,0x3F1,0.002519,0x1B,OK
  send     bsrx=0,9 -> BSRX:0x41A,0x3F1,0.000000,0x1B,OK

each word counts with all its bytes, and length times packets doesn't wrap
  send     bsrx=1,8,3 -> BSRX: ,OK
  # the first block alone: packets 01234567, the word at 12 89ABCDEF, bit errors 13579BDF; the others zero
  phone    hci 0104FC0102 04FFA3000000674523010000000000000000EFCDAB89DF9B5713\*140{00}
  # 324508639 / (1021 * 19088743) * 100: the product has 35 bits
  send     bsrx=0,8 -> BSRX:0x1234567,0x89ABCDEF,1.665034,0x13579BDF,OK

without a test there is nothing, and no packet is no error rate
  send     bsrx=0,0 -> BSRX:0x0,0x0,0.000000,0x0,OK

a vendor event that is too short, or none, is a failed read; other events in between are dropped
  send     bsrx=1,0,3 -> BSRX: ,OK
  phone    hci 0104FC0102 04FFA2\*162{01} 1
  send     bsrx=0,0 -> BSRX: ,ERROR
  phone    hci 0104FC0102 040E040104FC00 1 | clock hold
  send     bsrx=0,0
  phone    clock +1995
  after    10 -> BSRX: ,ERROR
  phone    clock run | fail hci_send_cmd hci0
  send     bsrx=0,0 -> BSRX: ,ERROR
  phone    fail off -> 0 faults were never reached
  send     bsrx=0,0 -> BSRX:0x41A,0x3F1,0.095238,0x1B,OK

what the controller says to a start doesn't matter, but the reset must pass
  send     bthr -> BTHR: ,OK
  phone    hci 0104FC1506 040E040104FC12
  send     bsrx=1,0,3 -> BSRX: ,OK
  phone    hci 01030C 040E0401030C01
  send     bsrx=1,0,3 -> BSRX: ,ERROR
  phone    hci last -> 01030C00

too few values, another mode or too many values touch nothing
  send     bsrx | bsrx=0 | bsrx=1,0 | bsrx=2,0,3,1 -> BSRX: ,SYNTAX
  phone    hci recent -> none
  # a fifth value leaves the defaults, so that nothing was given
  send     bsrx=1,2,3,1,5 -> BSRX:0x0,0x0,0.000000,0x0,OK
  send     bsrx=? -> BSRX:Bluetooth static RX,bsrx      (0-1),(0-8),(0x0-0x5D),(0-4)                      stat rx(mode,pkt_type,ch,pattern,OK
