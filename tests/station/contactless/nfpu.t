#: Powers the current contactless chip up; `nfsl` says which that is, at the start the first one, the PN65.
#: nfpu[=MODE] | switches the chip on and sets up its link. MODE is passed on, and no chip here looks at it; 0 when left
#:   out. Answers with one blank. A chip that doesn't answer is `ERROR` and stays switched on; the next `nfpu` begins
#:   anew. When one is up already, the answer says so
#: nfpu? | the same

a start is the whole list of frames, each answer acknowledged
  #:
  send     nfpu -> NFPU: ,OK
  phone    gpio 558 -> 0
  phone    pn65 recent            -> 05F90400C3E5\n05808103EA39\n03C1AAF2\n05898114CAC1\n03C231C0\n05928103C709\n03C3B8D1
  +        \n089B8110200090A9ED\n03C407A5\n05A48203D873\n03C58EB4\n09AD823F009810BCB5F2\n03C61586\n09B6823F00980900900C\n03C79C97
  +        \n09BF823F009E710074A5\n03C023E3\n0980823F009EAA0059D1\n03C1AAF2\n0989823F009EB400E19F\n03C231C0\n0992823F009C5C07F4BA
  +        \n03C3B8D1\n099B823F009C5DCCCA9A\n03C407A5
  phone    pn65 reg 9810 -> BC | pn65 reg 9C5D -> CC
  send     nfpu -> NFPU:NFC is alreadey powered up,ERROR
  send     nfpu=? -> NFPU:NFC Power Up,nfpu      (0-1)                                             NFC Power Up,OK
  send     nfpd -> NFPD: ,OK
  send     nfpu?1 -> NFPU: ,OK

all frames of a start are sent, also behind one that fails, and the next start begins anew
  phone    speed 100 | pn65 8103 silent 1
  send     nfpu -> NFPU: ,ERROR
  phone    gpio 558 -> 0 | pn65 reg 9C5D -> CC
  send     nfid=1 -> NFID:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK

a chip without a bus or without power doesn't start
  phone    speed 100 | fail open /dev/i2c-2
  send     nfpu -> NFPU: ,ERROR
  phone    fail write /dev/gpio558 all
  send     nfpu -> NFPU: ,ERROR

a value more than the one is no line of this command
  send     nfpu=1,2 -> nfpu      (0-1)                                             NFC Power Up,SYNTAX

the second chip, its line at 460800 and both of its static pipes open
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  phone    tamiro lines -> cen 1 pon 1 tvdd 0 hsel 0 speed 460800
  # 81 03 in an envelope: 00+04+00+81+03 = 88, turned round 77; 80 03: 78
  phone    tamiro recent -> 53000400810377\n53000400800378
  send     nfpd -> NFPD: ,OK
  phone    tamiro lines -> cen 0 pon 0 tvdd 0 hsel 0 speed 460800

the second chip without its line, its control device or an answer
  send     nfsl=2 -> NFSL: ,OK
  phone    fail open /dev/ttyHSL1
  send     nfpu -> NFPU: ,ERROR
  phone    fail open /dev/tamiro_ctrl
  send     nfpu -> NFPU: ,ERROR
  phone    tamiro 81 silent
  send     nfpu -> NFPU: ,ERROR
  phone    tamiro off
  send     nfpu -> NFPU: ,OK
