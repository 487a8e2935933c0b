#: Lists commands with their ranges and calls, a usage line each.
#: help | all commands, sorted by the first letter of their names
#: help="PREFIX"[,MASK] | those whose names begin with PREFIX (lower case, in quotes; `""` is every name), in the
#:   order of the program's tables. MASK, a number, lists only the groups whose bits it has: 1 invisible, 2 standard,
#:   4 production, 8 software, 0x10 precond, 0x20 deprecated; without it all are listed
#: help=,MASK | all commands of these groups, sorted by the first letter
#: help=? | the groups and their bits
#: A usage line is the name in 10 columns, the range in 50 and the call; a name is cut to 10 characters, a range to
#: 57, a call to 32. When no command fits, the answer is `NOT FOUND`.

a pattern lists the names that begin with it, in table order
  send     help="hel" -> help      ["a..z"[,(1-15)]]                                 help(string,group),OK
  #:
  send     help="s3" -> s3        0xB[,0xB]                                         s3(ct,final),OK

a pattern is compared as it is written, the command's own name isn't
  send     HELP="S3" -> NOT FOUND

a mask selects by group bits: 1 is invisible, 2 standard
  #: Only invisible commands:
  send     help="cas",1 -> case      [(0,1)]                                           case(en),OK
  send     help="cas",0xFE -> NOT FOUND

a string that isn't closed ends with the line
  send     help="hel -> help      ["a..z"[,(1-15)]]                                 help(string,group),OK
  send     help="hel\\ -> NOT FOUND

the test form names the groups, and the usage line follows
  send     help=?
  expect   HELP:invisible   0x01,HELP:standard    0x02,HELP:production  0x04,HELP:software    0x08,HELP:precond     0x10,HELP:deprecated  0x20,help      ["a..z"[,(1-15)]]                                 help(string,group),OK

values that don't fit get the usage line and aren't run
  send     help="hel", 4 -> help      ["a..z"[,(1-15)]]                                 help(string,group),SYNTAX
  # one value more than the pattern and the mask: the mask's directive repeats, and is passed over
  send     help="hel",x, -> NOT FOUND
