#: Measures the carrier-to-noise ratio of a GPS signal that the station sends.
#: grsd=2[,SAMPLES[,ITERATIONS]] | starts a measurement. SAMPLES 1 (when left out), 2, 4, 8, 16 or 32; ITERATIONS 1 to
#:   10, 3 when left out. Answers with an empty line; `ERROR` when one is already started
#: grsd=4 | ends it and gives the result: `RATIO,BIN`, the ratio in dB-Hz with one decimal and the bin of the peak
#: grsd=4[,SAMPLES[,ITERATIONS]] | with none started, a whole measurement at once
#: Takes half a second, and up to 80 s when the modem gives no result; then it is `ERROR`.

started and asked for in two steps, and a second start is refused and sends nothing
  phone    speed 1000
  send     grsd=2,4,5 -> GRSD:,OK
  send     grsd=2 -> ERROR
  phone    diag filter -> 0410001500
  #:
  send     grsd=4
  # 38.7 dB-Hz, peak in bin 261
  expect   GRSD:38.7,261,OK
  # the result costs no second measurement
  phone    diag recent -> 6001\n4B0D6500140100\n7300000001\*134{0}\n
  +        73000000040000000000000001000000CD04\*304{0}\n
  +        730000000300000001000000CD04\*292{0}80000000000000000000\n
  +        4B0D6500163200100000000401000104000500000000\n6001\n4B0D6500140101

the result is read from its place in the record, low byte first
  phone    speed 1000
  # no measurement of the modem's own, but a record of 29 bytes: 12345.6 at 17, 16909060 at 21
  phone    diag 4B0D650016 4B0D65001632 | fail diag 106 1
  phone    diag log FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF40E2010004030201FFFFFFFF
  send     grsd=4,32,10 -> GRSD:12345.6,16909060,OK

each packet has its pause, and a record that doesn't come is given up after 80 seconds
  phone    diag 4B0D650016 4B0D65001632 | clock hold
  send     grsd=2
  # 30 ms and 1 for each byte: 31 + 40 before the first packet of the modem's, which answers each in 1 ms
  phone    clock +70 | diag last -> none
  phone    clock +1 | diag last -> 6001
  # then 32 + 1, 37 + 1, 102 + 1, 200 + 1, 200 + 1; one sample, three iterations
  phone    clock +575 | diag last -> 730000000300000001000000CD04\*292{0}80000000000000000000
  phone    clock +1 | diag last -> 4B0D6500163200100000000401000101000300000000
  # 52 + 1, 800 times 100 ms, 32 + 1 and 37 + 1
  phone    clock +80053 | diag last -> 6001
  phone    clock +70 | port 1 -> < grsd=2\\r
  after    1 -> GRSD:,ERROR
  phone    diag last -> 4B0D6500140101
  # there is nothing to ask for, and then a measurement can be started again
  send     grsd=4 -> ERROR
  phone    diag off | clock run | speed 1000
  send     grsd=4 -> GRSD:38.7,261,OK

values are checked before anything is sent
  send     grsd=2,32,11 -> GRSD:Max 10 iterations are allowed,SYNTAX
  send     grsd=2,3 -> GRSD:Sample size must be a power of two and max 32,SYNTAX
  send     grsd=3 -> SYNTAX
  send     grsd -> ERROR
  phone    diag last -> none

what it is
  send     grsd? -> GRSD:GPS Test,OK
  send     grsd=? -> GRSD:GPS Test,
  + grsd      (2,4)[,(1,2,4,8,16,32)][,(1-10)]                  grsd(mode,sampleSize,iterations),OK
