# kill restarts the phone.

it restarts at once and says nothing
  send     kill
  reboots
  send     case?
  expect   CASE:false,OK
  phone    shell 2 -> 0 reboot\n0 echo "Korvat HVT is starting up..." > /dev/kmsg

0 is the same
  send     kill=0
  reboots
  send     case?
  expect   CASE:false,OK

a phone that refuses to restart says so
  phone    fail system reboot 1
  send     kill
  expect   KILL: ,ERROR
  send     case?
  expect   CASE:false,OK

what isn't 0 to 2 is a syntax error
  send     kill=3
  expect   KILL: ,SYNTAX
  send     kill=-1
  expect   KILL: ,SYNTAX

what it is
  send     kill=?
  expect   KILL:Kill (restart) system.,kill      (0-2)                                             KILL(arg),OK

one value is all it takes
  send     kill=1,2
  expect   kill      (0-2)                                             KILL(arg),SYNTAX
