#: Sets the first byte of the line term, which ends each result, and of the final sequence, which ends the answer.
#: s3? | answers with the present bytes, `0xTERM, 0xFINAL`
#: s3=TERM,FINAL | both bytes, hexadecimal; of each value the low byte counts, 0 stands for no byte, which leaves the
#:   whole text empty. The answer to this line has the new bytes already
#: s3=BOTH | the same byte for both
#: s3 | sets 0x0D, carriage return, for both; so do more than two values
#: A phone starts with `s3=2c,d`: a comma and a carriage return.

the reply to a setting has the new terminators
  #: Each result on a line of its own, where the status word follows:
  send     s3=d,d
  read     S3:0x0d, 0x0d\rOK\r\n
  send     case?
  read     CASE:false\rOK\r\n
  send     s3=3b,21
  read     S3:0x3b, 0x21;OK!\n

one value sets both, and its low byte counts
  send     s3=12c
  read     S3:0x2c, 0x2c,OK,\n

a zero byte leaves the text without a terminator
  send     s3=0,d -> S3:0x00, 0x0dOK
  send     help="s",1
  expect   s3        0xB[,0xB]                                         s3(ct,final)s4        0xB[,0xB[,0xB]]                                   s4(lt,final,prompt)OK

no value, and more than two, set both to carriage return
  send     s3
  read     S3:0x0d, 0x0d\rOK\r\n
  send     s3=2c,d -> S3:0x2c, 0x0d,OK
  send     s3=2c,d,9
  read     S3:0x0d, 0x0d\rOK\r\n

the start-up setting is a comma and a carriage return, and a read applies nothing
  #: A read applies nothing, whatever values it has:
  send     s3?21,21 -> S3:0x2c, 0x0d,OK

the test form is the usage line, and so is the answer to a line that doesn't fit
  send     s3=? -> s3        0xB[,0xB]                                         s3(ct,final),OK
  send     s3=g -> s3        0xB[,0xB]                                         s3(ct,final),SYNTAX
