#: Sets the second byte of the line term and of the final sequence, and the prompt behind the latter.
#: s4? | answers with the present bytes, `0xTERM, 0xFINAL`
#: s4=TERM,FINAL[,PROMPT] | the bytes, hexadecimal; of each value the low byte counts, 0 stands for no byte. PROMPT is
#:   the third byte of the final sequence; left out it stays as it is, 0 removes it
#: s4=BOTH | the same byte for term and final sequence; the prompt stays
#: s4 | sets 0x0A, line feed, for both; so do more than three values
#: A phone starts with `s4=0,a` and no prompt: nothing behind the comma, a line feed behind the carriage return.

the start-up setting has no second byte in the term, a line feed in the final sequence and no prompt
  # a read applies nothing
  #:
  send     s4?21,21,21 -> S4:0x00, 0x0a,OK

with s3 it brings back line ends and a prompt
  send     s3=d,d
  read     S3:0x0d, 0x0d\rOK\r\n
  #: Behind `s3=d,d`: line ends and a prompt, as a terminal likes them.
  send     s4=a,a,3e
  read     S4:0x0a, 0x0a\r\nOK\r\n>
  send     case?
  read     CASE:false\r\nOK\r\n>

two values leave the prompt as it is, and 0 removes it
  send     s4=0,a,3e
  read     S4:0x00, 0x0a,OK\r\n>
  send     s4=0,a
  read     S4:0x00, 0x0a,OK\r\n>
  send     s4=0,a,0 -> S4:0x00, 0x0a,OK

one value sets both; no value, and more than three, set both to line feed
  send     s4=21
  read     S4:0x21, 0x21,!OK\r!
  send     s4
  read     S4:0x0a, 0x0a,\nOK\r\n
  send     s4=0,a -> S4:0x00, 0x0a,OK
  send     s4=1,2,3,4
  read     S4:0x0a, 0x0a,\nOK\r\n

a zero in the final sequence ends it before the prompt
  send     s4=0,0,3e
  read     S4:0x00, 0x00,OK\r
  send     s4=0,a
  read     S4:0x00, 0x0a,OK\r\n>

the test form is the usage line, and so is the answer to a line that doesn't fit
  send     s4=? -> s4        0xB[,0xB[,0xB]]                                   s4(lt,final,prompt),OK
  send     s4=a a -> s4        0xB[,0xB[,0xB]]                                   s4(lt,final,prompt),SYNTAX
