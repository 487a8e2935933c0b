#: Switches the charging of the backup capacitor, which keeps the clock going without a battery.
#: bact=ON | 1 on, 0 off. Answers with one blank; another value is `SYNTAX`

on and off, in the two low bits of its register
  phone    spmi 2845 11
  #:
  send     bact=1 -> BACT: ,OK
  phone    spmi 2845 -> 12
  send     bact=0 -> BACT: ,OK
  phone    spmi 2845 -> 10

a bus that fails is an error
  phone    fail spmi 02845 1
  send     bact=1 -> BACT: ,ERROR
  phone    spmi 2845 -> 10

nothing but 0 and 1
  send     bact | bact=2 -> BACT: ,SYNTAX
  send     bact=? -> BACT:Backup Capacitor Control Test command,bact      (0-1)                                             bact(action),OK
