#: Tells whether a SIM is in, and tests its contacts.
#: sict=1 | tests the contacts by the modem: 0x00 for good ones, 0x01 for any other end, after 4 s at the latest. A modem
#:   that doesn't answer as it should is an empty line and `ERROR`
#: sict=4[,SLOT] | whether a card is in: 0x01 or 0x00. SLOT 1 is the only one of this phone, 2 is always 0x00
#: The other tests (0, 2, and those of a slot) aren't there: an empty line and `SYNTAX`. The read form is the help.

a card is told by its line alone, for the first slot
  #:
  send     sict=4 -> SICT:0x01,OK
  send     sict=4,1 -> SICT:0x01,OK
  send     sict=4,2 -> SICT:0x00,OK
  phone    gpio 100 0
  send     sict=4 -> SICT:0x00,OK
  phone    fail read /dev/gpio100
  send     sict=4 -> SICT:0x00,OK
  phone    diag last -> none

the test of the contacts is started, and asked for every 100 ms until it has ended
  phone    clock hold
  send     sict=1
  # 350 ms: asked after 102, 202, 302 and 402
  phone    clock +395
  after    20 -> SICT:0x00,OK
  phone    clock run | diag recent -> 4B0B008002000000\*4{\n4B0B008003000000}

without a card, and in any other last state, the contacts are bad: all 16 bits count
  phone    gpio 100 0
  #:
  send     sict=1 -> SICT:0x01,OK
  phone    diag 4B0B008002 4B0B008002000A000000040100000000
  send     sict=1 -> SICT:0x01,OK
  phone    diag 4B0B008002 4B0B008002000A000000050100000000
  send     sict=1 -> SICT:0x01,OK
  phone    diag 4B0B008002 4B0B008002000A000000040000000000
  send     sict=1 -> SICT:0x00,OK
  phone    diag 4B0B008002 4B0B008002000A000000060000000000
  send     sict=1 -> SICT:0x01,OK

a test that never ends is given up after 40 polls, with bad contacts
  phone    diag 4B0B008003 4B0B008003000A000000020000000000 | clock hold
  send     sict=1
  phone    clock +3900
  after    200 -> SICT:0x01,OK
  phone    clock run

a refused start and a broken exchange are errors
  phone    diag 4B0B008002 4B0B008002000A000000050000000000
  send     sict=1 -> SICT:,ERROR
  phone    diag last -> 4B0B008002000000
  phone    diag off | diag 4B0B008002 4B0B008002000A0000000400000000
  send     sict=1 -> SICT:,ERROR
  phone    diag 4B0B008002 4B0B008002000A0000000400000000000000
  send     sict=1 -> SICT:,ERROR
  phone    diag off | diag 4B0B008003 empty 1
  send     sict=1 -> SICT:,ERROR
  phone    diag 4B0B008003 4B0B008003000A00000004000000000000 1
  send     sict=1 -> SICT:,ERROR
  send     sict=1 -> SICT:0x00,OK

a phone without the channel can't test
  conf     without /dev/diag
  send     sict=1 -> SICT:,ERROR
  send     sict=4 -> SICT:0x01,OK

the other tests aren't there, also those of a slot
  send     sict=0 | sict=2 | sict=3 | sict=5 | sict=1,1 | sict=4,3 | sict=4,0 -> SICT:,SYNTAX
  send     sict=5,1 | sict=4,1,1 | sict -> SICT:,SYNTAX
  # the low byte counts
  send     sict=260 -> SICT:0x01,OK
  phone    diag last -> none

the read form is the help
  send     sict? -> SICT:SIM card detection and connection,OK
  send     sict=? -> SICT:SIM card detection and connection,sict      [(0-6),(1-2)]                                     sict(),OK
