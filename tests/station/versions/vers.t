#: Tells the versions of the program, of the application system and of the modem.
#: vers[=WHICH] | 0, also when left out: program, application system and modem, a line each. 1 the program: name, date
#:   and time of its build. 2 the application system, as its kernel tells it. 3 the modem: its build and the time of
#:   it. A number above 3 is `ERROR` with no line, a kernel that can't be read `ERROR` behind an empty one

the application system's version is the kernel's, without line ends, and may be empty
  # a backspace takes the last character that stayed
  write    /proc/version Linux version 3.4.0 (builder@host)x\r\n\x08 #1 SMP PREEMPT\n
  send     vers=2 -> VERS:Linux version 3.4.0 (builder@host) #1 SMP PREEMPT,OK
  write    /proc/version \n
  send     vers=2 -> VERS:,OK

a kernel's version that can't be read is an error
  phone    fail read /proc/version
  send     vers=2 -> VERS:,ERROR
  send     vers=2 -> VERS:Linux version 3.4.0-perf-g5d2c81e (build@korvat) (gcc version 4.7 (GCC) ) #1 SMP PREEMPT Mon Jul 29 19:12:44 2013,OK

a value above 3 is an error without a line
  send     vers=4 -> ERROR

two values are a syntax error, and the help
  send     vers=1,2 -> vers      [(0-3)]                                           vers(val),SYNTAX
  send     vers=? -> VERS:Parameters: 0=All, 1=QAT, 2=App OS 3=Modem,
  + vers      [(0-3)]                                           vers(val),OK

the modem's version is its build and the time of its build
  #:
  send     vers=3 -> VERS:M8974A-KORVAT-1.0.4085,Jul 12 201319:45:30,OK
  phone    diag recent -> 7C\n00

the build is cut at 99 characters with its comma, the time at 19
  # 12 bytes, then 120 times "A"
  phone    diag 7C 7C0000000000000000000000
  + 414141414141414141414141414141414141414141414141414141414141
  + 414141414141414141414141414141414141414141414141414141414141
  + 414141414141414141414141414141414141414141414141414141414141
  + 414141414141414141414141414141414141414141414141414141414141
  # 1 byte, then 25 times "B"
  phone    diag 00 0042424242424242424242424242424242424242424242424242
  send     vers=3 -> VERS:\*99{A}\*19{B},OK

responses too short for a text, and none at all
  phone    diag 7C 7C00
  send     vers=3 -> VERS:,Jul 12 201319:45:30,OK
  send     ftmc=209,1 -> FTMC:,OK
  phone    diag 00 silent
  send     vers=3 -> VERS:,,OK
  phone    diag 7C empty
  send     vers=3 -> VERS:,OK
