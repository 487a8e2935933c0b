#: Powers the phone off.
#: poff | at once and without an answer
#: poff=TIME | after TIME in ms, counted from the last such line. Answers with one blank first
#: poff=0 | as soon as the cable is pulled. Answers with one blank first
#: A phone that can't go off answers `ERROR` behind one blank.

without a value it goes off at once and says nothing
  send     poff
  off

after a time it answers first, the newest time counts, and what is in memory is written before
  phone    clock hold
  send     poff?1000 -> POFF: ,OK
  #:
  send     poff=2000 -> POFF: ,OK
  # as if the phone couldn't go off, so that its log can be looked at
  phone    fail system reboot 1 | clock +1999 | shell 1 -> 0 echo 1 > /dev/wcnss_wlan
  phone    clock +1 | shell 1 -> 0 sync | fail off -> 0 faults were never reached
  send     poff=0x64 -> POFF: ,OK
  phone    clock +99
  send     case? -> CASE:false,OK
  phone    clock run
  off

with 0 it waits for the cable to go
  #:
  send     poff=0 -> POFF: ,OK
  send     poff=0 -> POFF: ,OK
  phone    fail system reboot 1 | usb off | idle | shell 2 -> 0 echo 1 > /dev/wcnss_wlan\n0 sync
  phone    usb on
  expect   TP,OK
  phone    usb off
  off

a phone that refuses to go off says so, and what it is
  phone    fail system reboot 1
  send     poff -> POFF: ,ERROR
  phone    shell 1 -> 0 sync
  send     poff=? -> POFF:Power off system,poff      W                                                 POFF(waittime),OK
