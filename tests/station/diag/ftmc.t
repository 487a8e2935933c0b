#: Sends any packet to the modem's factory test mode and answers with the response.
#: ftmc=BYTE[,BYTE...] | up to 8192 bytes, each decimal or hexadecimal behind `0x`, separated by one character, blanks
#:   don't matter. Answers with the bytes of the response, `0x..,0x..`
#: ftmc=t | closes the channel to the modem until the next start of the program
#: ftmc=200 | the driver's request 102, whatever it does there; answers `0xc8`
#: ftmc=201 | the count of stored log records: `0xc9` and 4 bytes, low byte first
#: ftmc=202,N0,N1,N2,N3,BYTE... | sets the log filter: its length in 4 bytes, low byte first, and that many bytes.
#:   Answers with the request; with nothing when the length is wrong
#: ftmc=203 | drops the stored records; answers `0xcb`
#: ftmc=204 | the driver's request 107; answers with no byte
#: ftmc=205 | the oldest record, taken out: `0xcd`, its length in 4 bytes and its bytes; `0xcd` alone when there is
#:   none
#: ftmc=206 | the same of the second store, without the length, behind `0x6d`
#: ftmc=207,0 | takes the oldest record for reading in pages: `0xcf` and the length with its 4 bytes in front, in 2
#:   bytes
#: ftmc=207,1,LOW,HIGH,COUNT | COUNT bytes of it from offset LOW + 256 HIGH; `0xcf` alone beyond its end
#: ftmc=208,0,BYTE... | begins a long request, `208,1` adds to it and `208,2` sends it. The parts answer `0xd0`, the
#:   last the response, whatever it is
#: ftmc=209,SECONDS | how long a response is waited for; 0 brings back 25 s
#: A request whose first byte is 200 to 209 stays inside the phone. A response belongs to a request when its first
#: three bytes are the same. One that doesn't has the request sent again, ten times in all; then the last response and
#: `ERROR` are the answer. No response in 25 s is `ERROR` behind an empty line. The phone answers nothing else while
#: it waits.

a request in decimal or hexadecimal, with or without blanks, is the same packet
  #:
  send     ftmc=75,11,0x00,128,0,0
  # bytes 0 to 5 again, 10 bytes to come, state 0
  expect   FTMC:0x4b,0x0b,0x00,0x80,0x00,0x00,0x0a,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,OK
  send     ftmc=0x4B, 0x0B, 0, 0x80, 0, 0 -> FTMC:0x4b,0x0b,0x00,0x80,0x00,0x00,0x0a,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,OK
  phone    diag recent -> 4B0B00800000\n4B0B00800000

a request of one byte takes any response that isn't empty
  phone    diag 60 99
  send     ftmc=0x60 -> FTMC:0x99,OK

a packet that the modem doesn't know is sent ten times and its error is shown
  #: A packet that the modem doesn't know:
  send     ftmc=1,2,3
  # 0x13 and the request
  expect   FTMC:0x13,0x01,0x02,0x03,ERROR
  phone    diag recent -> 010203\n010203\n010203\n010203\n010203\n010203\n010203\n010203\n010203\n010203

a response that differs in its third byte has the request sent again, one in its fourth belongs to it
  phone    diag 4B0B0E00 4B0B0F77 2
  send     ftmc=75,11,14,0 -> FTMC:0x4b,0x0b,0x0e,0x00,OK
  phone    diag recent -> 4B0B0E00\n4B0B0E00\n4B0B0E00
  phone    diag 4B0B0E00 4B0B0EFF
  send     ftmc=75,11,14,0 -> FTMC:0x4b,0x0b,0x0e,0xff,OK

an empty response ends the exchange at once, also behind one that doesn't match
  phone    diag 4B empty
  send     ftmc=75,11,14,0 -> FTMC:,ERROR
  phone    diag last -> 4B0B0E00
  phone    diag 4B 11 1
  send     ftmc=75,11,14,0 -> FTMC:,ERROR
  # the first exchange one request, the second two
  phone    diag recent -> 4B0B0E00\n4B0B0E00\n4B0B0E00

a modem that doesn't answer costs the whole time and no more: 25 seconds, which can be set
  phone    diag down | clock hold
  send     ftmc=75,11,14,0
  phone    clock +24500 | port 1 -> < ftmc=75,11,14,0\\r
  after    600 -> FTMC:,ERROR
  phone    diag recent -> none
  phone    clock run | diag up | diag 4B silent 1
  send     ftmc=209,3 -> FTMC:,OK
  phone    clock hold
  send     ftmc=75,11,14,0 after 3100 -> FTMC:,ERROR
  phone    diag recent -> 4B0B0E00
  phone    clock run | diag down
  send     ftmc=209,0 -> FTMC:,OK
  phone    clock hold
  send     ftmc=75,11,14,0
  phone    clock +20000 | diag up
  after    10 -> FTMC:0x4b,0x0b,0x0e,0x00,OK

a phone without the channel answers with an error, local commands too
  conf     without /dev/diag
  send     ftmc=75,11,14,0 | ftmc=201 -> FTMC:,ERROR
  send     vers=3 -> VERS:,OK

a closed channel stays closed, and exchanges take their time
  send     ftmc=209,1 -> FTMC:,OK
  send     ftmc=t -> OK
  send     ftmc=75,11,14,0 -> FTMC:,ERROR
  phone    diag last -> none

a failing driver is waited for
  phone    fail diag 100 3 | fail diag 101 3
  send     ftmc=75,11,14,0 -> FTMC:0x4b,0x0b,0x0e,0x00,OK
  phone    fail off -> 0 faults were never reached

stored records are counted, read one after the other with their length, and dropped
  phone    diag log 0102030405 | diag log AA
  # a log that can't be read counts as empty
  phone    fail diag 103 1
  send     ftmc=201 -> FTMC:0xc9,0x00,0x00,0x00,0x00,OK
  #: Two log records are stored:
  send     ftmc=201 -> FTMC:0xc9,0x02,0x00,0x00,0x00,OK
  send     ftmc=205 -> FTMC:0xcd,0x05,0x00,0x00,0x00,0x01,0x02,0x03,0x04,0x05,OK
  send     ftmc=205 -> FTMC:0xcd,0x01,0x00,0x00,0x00,0xaa,OK
  send     ftmc=203 -> FTMC:0xcb,OK
  send     ftmc=201 -> FTMC:0xc9,0x00,0x00,0x00,0x00,OK
  send     ftmc=205 -> FTMC:0xcd,OK
  phone    diag last -> none
  # the second store is read under the driver's own number
  phone    diag log2 C0FFEE
  send     ftmc=206 -> FTMC:0x6d,0xc0,0xff,0xee,OK
  send     ftmc=206 -> FTMC:0x6d,OK

the log filter is set when its length is right, and codes that only the driver knows are taken
  send     ftmc=202,5,0,0,0,1 -> FTMC:,OK
  # and one of a single byte isn't taken
  send     ftmc=202,1,0,0,0,1 -> FTMC:,OK
  phone    diag filter -> none
  send     ftmc=202,2,0,0,0,1,2 -> FTMC:0xca,0x02,0x00,0x00,0x00,0x01,0x02,OK
  phone    diag filter -> 0102 | diag last -> none
  send     ftmc=200 -> FTMC:0xc8,OK
  send     ftmc=204 -> FTMC:,OK

a record is read in pages
  phone    diag log 000102030405060708090A0B
  # 12 bytes behind 4 of length
  send     ftmc=207,0 -> FTMC:0xcf,0x10,0x00,OK
  send     ftmc=207,1,0,0,6 -> FTMC:0xcf,0x0c,0x00,0x00,0x00,0x00,0x01,OK
  send     ftmc=207,1,13,0,3 -> FTMC:0xcf,0x09,0x0a,0x0b,OK
  send     ftmc=207,1,14,0,3 -> FTMC:0xcf,OK
  send     ftmc=207,0 -> FTMC:0xcf,0x00,0x00,OK

a long request is gathered in parts, and its response isn't matched
  send     ftmc=208,0,75,11 | ftmc=208,1,14,0,1,2 -> FTMC:0xd0,OK
  phone    diag last -> none
  send     ftmc=208,2 -> FTMC:0x4b,0x0b,0x0e,0x00,0x01,0x02,OK
  phone    diag last -> 4B0B0E000102
  send     ftmc=208,0 | ftmc=208,1,9,8 -> FTMC:0xd0,OK
  phone    diag 09 123456
  send     ftmc=208,2 -> FTMC:0x12,0x34,0x56,OK
  phone    diag last -> 0908

a response is shown as far as a line of 32768 characters goes
  # 5 + 6552 * 5 + 3 characters; the line term stands behind
  phone    diag 60 \*6553{AB}
  send     ftmc=0x60 -> FTMC:\*6552{0xab,}0xa,OK

no value is a syntax error, and what it is
  send     ftmc -> SYNTAX
  send     ftmc? -> FTMC:Factory Test Mode Channel,OK
  send     ftmc=? -> FTMC:Factory Test Mode Channel,
  + ftmc      (0-255)[,(0-255)...]                              ftmc(data),OK
