# list is help with the names alone, padded to 10 characters. Its format has a blank before the mask.

a pattern lists the names that begin with it, in table order
  send     list="i2c"
  expect   i2cw      ,i2cr      ,OK
  send     list="s3"
  expect   s3        ,OK

the mask wants its blank
  send     list="cas", 1
  expect   case      ,OK
  send     list="cas", 2
  expect   NOT FOUND
  send     list="cas",1
  expect   list      ["a..z"[,(1-15)]]                                 list(string,group),SYNTAX

the test form names the groups, and the usage line follows
  send     list=?
  expect   LIST:invisible   0x01,LIST:standard    0x02,LIST:production  0x04,LIST:software    0x08,LIST:precond     0x10,LIST:deprecated  0x20,list      ["a..z"[,(1-15)]]                                 list(string,group),OK
