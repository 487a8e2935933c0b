up to three parameter sets are loaded in turn
  send     loadnv=0,2,3
  expect   LOADNV:,OK
  phone    diag recent -> 4B0B00800600\n4B0B00800800\n4B0B00800900
  send     loadnv?4
  expect   LOADNV:,OK
  phone    diag last -> 4B0B00800A00

the first that fails ends it
  # 16 bytes whose word at 10 isn't 1
  phone    diag 4B0B00800800 4B0B0080080000000000020000000000
  send     loadnv=0,2,3
  expect   LOADNV:,ERROR
  phone    diag recent -> 4B0B00800600\n4B0B00800800

the state word has two bytes
  phone    diag 4B0B0080 4B0B0080060000000000010100000000 1
  send     loadnv=0
  expect   LOADNV:,ERROR

a response of another length is success without a look at it
  phone    diag 4B0B00800600 4B0B0080060000000000000000000000FF
  send     loadnv=0
  expect   LOADNV:,OK

a modem that doesn't answer is a failure
  send     ftmc=209,1
  expect   FTMC:,OK
  phone    diag 4B0B silent
  send     loadnv=0
  expect   LOADNV:,ERROR

a value above 4 is a syntax error behind those that were loaded
  send     loadnv=0,5,3
  expect   LOADNV:,SYNTAX
  phone    diag recent -> 4B0B00800600

one to three values are wanted
  send     loadnv
  expect   SYNTAX
  phone    diag last -> none

what it is
  send     loadnv=?
  expect   LOADNV:Load NV parameters,
  + loadnv    (0-4),(1-4),(1-4)                                 loadnv(val,val,val),OK
