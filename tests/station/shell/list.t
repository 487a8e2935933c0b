#: Lists the names of commands, each padded to 10 characters.
#: list | all names, sorted by their first letter
#: list="PREFIX"[, MASK] | the names that begin with PREFIX, in the order of the program's tables; MASK selects groups
#:   as with `help`. A blank belongs before MASK, other than with `help`
#: list=? | the groups and their bits
#: When no command fits, the answer is `NOT FOUND`.

a pattern lists the names that begin with it, in table order
  #:
  send     list="i2c" -> i2cw      ,i2cr      ,OK
  send     list="s3" -> s3        ,OK

the mask wants its blank
  #:
  send     list="cas", 1 -> case      ,OK
  send     list="cas", 2 -> NOT FOUND
  send     list="cas",1 -> list      ["a..z"[,(1-15)]]                                 list(string,group),SYNTAX

the test form names the groups, and the usage line follows
  send     list=?
  expect   LIST:invisible   0x01,LIST:standard    0x02,LIST:production  0x04,LIST:software    0x08,LIST:precond     0x10,LIST:deprecated  0x20,list      ["a..z"[,(1-15)]]                                 list(string,group),OK
