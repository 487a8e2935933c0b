#: Reads a production parameter: a text or number that production keeps in a persistent unit.
#: ppre[=0] | the parameter that `ppwr=0` writes, a text of up to 31 characters
#: ppre=11 | the RF band variant, a text; no line and `OK` when none is stored
#: ppre=NUMBER[,SUB] | NUMBER 1, 5 and 7 to 10 are texts, of which 1, 8 and 9 have SUB 0 and 1; 3 and 6 are numbers.
#:   This board has no unit for any of them: a text is `ERROR` behind an empty line, a number 0
#: Another NUMBER or SUB is `SYNTAX`.
# Production parameters, read. Of the items behind them this board has two: 4 (unit 80001324) and 1, the RF
# variant (unit 800009F7).

the parameter is a text, and no value means number 0
  phone    unit 80001324 4142433132330000
  #:
  send     ppre -> PPRE:ABC123,OK
  send     ppre=0,0 -> PPRE:ABC123,OK

the RF variant is there from the first start on, and its absence is no error and no line
  #:
  send     ppre=11 -> PPRE:L1234578_20W12458,OK
  phone    unit 800009F7 -
  send     ppre=11 -> OK

what the board lacks is an error for a text and 0 for a number
  send     ppre=1 | ppre=9 -> PPRE:,ERROR
  send     ppre=3 | ppre=6,9 -> PPRE:0,OK

numbers that don't exist are syntax errors, and the help
  send     ppre=0,1 | ppre=2 -> PPRE:,SYNTAX
  send     ppre=? -> PPRE:Production Parameter Read,ppre      (0,1,3,5-10)[,(0,1)]                              ppre(),OK

an absent, unreadable or oversized unit is an error
  phone    unit 80001324 4142434445464748494A4B4C4D4E4F505152535455565758595A3031323334
  send     ppre -> PPRE:ABCDEFGHIJKLMNOPQRSTUVWXYZ01234,OK
  phone    unit 80001324 4142434445464748494A4B4C4D4E4F505152535455565758595A303132333435
  send     ppre -> PPRE:,ERROR
  phone    unit 80001324 41 | fail auxnvq_read_unit
  send     ppre -> PPRE:,ERROR
  phone    unit 80001324 -
  send     ppre -> PPRE:,ERROR
