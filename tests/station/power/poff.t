# poff powers the phone off: at once, after a time in milliseconds, or when the cable is pulled.

without a value it goes off at once and says nothing
  send     poff
  off

after a time it answers first
  send     poff=2000
  expect   POFF: ,OK
  phone    clock hold
  send     case?
  expect   CASE:false,OK
  phone    clock run
  off

the newest time counts
  phone    clock hold
  send     poff=1000
  expect   POFF: ,OK
  send     poff=600000
  expect   POFF: ,OK
  phone    clock +5000
  send     case?
  expect   CASE:false,OK
  send     poff=0x64
  expect   POFF: ,OK
  phone    clock run
  off

with 0 it waits for the cable to go
  send     poff=0
  expect   POFF: ,OK
  send     poff=0
  expect   POFF: ,OK
  phone    usb off
  off

a phone that refuses to go off says so, and what it is
  phone    fail system reboot 1
  send     poff
  expect   POFF: ,ERROR
  send     poff=?
  expect   POFF:Power off system,poff      W                                                 POFF(waittime),OK
