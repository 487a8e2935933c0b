#: Has the modem load one to three sets of its NV parameters.
#: loadnv=SET[,SET[,SET]] | each 0 to 4, loaded in turn until one fails, which is `ERROR` behind an empty line; above
#:   4 is `SYNTAX`, with those before it loaded. Answers with an empty line

up to three parameter sets are loaded in turn
  #:
  send     loadnv=0,2,3 -> LOADNV:,OK
  phone    diag recent -> 4B0B00800600\n4B0B00800800\n4B0B00800900
  send     loadnv?4 -> LOADNV:,OK
  phone    diag last -> 4B0B00800A00

the first that fails ends it
  # 16 bytes whose word at 10 isn't 1, although each of its bytes is
  phone    diag 4B0B00800800 4B0B0080080000000000010100000000
  send     loadnv=0,2,3 -> LOADNV:,ERROR
  phone    diag recent -> 4B0B00800600\n4B0B00800800

a response of another length is success without a look at it, and none is a failure
  phone    diag 4B0B00800600 4B0B0080060000000000000000000000FF 1
  send     loadnv=0 -> LOADNV:,OK
  phone    diag 4B0B0080 empty
  send     loadnv=0 -> LOADNV:,ERROR

a value above 4 is a syntax error behind those that were loaded
  send     loadnv=0,5,3 -> LOADNV:,SYNTAX
  phone    diag recent -> 4B0B00800600

one to three values are wanted, and what it is
  send     loadnv -> SYNTAX
  phone    diag last -> none
  send     loadnv=? -> LOADNV:Load NV parameters,
  + loadnv    (0-4),(1-4),(1-4)                                 loadnv(val,val,val),OK
