#: Switches the phone's charger and its USB host power.
#: ebct=1,ON | charging on (1) or off (0); 2 has no effect on this phone
#: ebct=2,CURRENT | the limit of the battery's current: 200 to 3000 mA in steps of 50, or 0 for 1000; the input is
#:   limited to 1500 mA
#: ebct=4,ON | power for what hangs on the USB socket, on (1) or off (0)
#: ebct=0 | no effect on this phone; neither has `ebct=3`
#: Answers with one blank; another current or second value is `ERROR`.

the charger goes on and off
  send     ebct=1,1 -> EBCT: ,OK
  phone    spmi 1049 -> 80
  send     ebct=1,0 -> EBCT: ,OK
  phone    spmi 1049 -> 01
  # off, with bits beside the two that don't belong to it
  phone    spmi 1049 8E
  send     ebct=1,0 -> EBCT: ,OK
  phone    spmi 1049 -> 0F

the battery current is set in steps of 50 mA, the input current to 1500 mA
  #:
  send     ebct=2,1000 -> EBCT: ,OK
  # code 20; index 15 in both input limits
  phone    spmi 1044 -> 14 | spmi 1344 -> 0F | spmi 1444 -> 0F
  # 1000 mA
  send     ebct=2,0 -> EBCT: ,OK
  phone    spmi 1044 -> 14
  #: Too low:
  send     ebct=2,150 -> EBCT: ,ERROR
  send     ebct=2,3050 | ebct=2,1025 -> EBCT: ,ERROR
  phone    spmi 1044 -> 14

power for the cable goes on and off, and leaves the other bits alone when it goes off
  send     ebct=4,1 -> EBCT: ,OK
  phone    spmi 1A046 -> 80 | spmi 18345 -> 40 | spmi 01348 -> 01 | spmi 18346 -> 80
  phone    spmi 18345 7A | spmi 18346 91 | spmi 01348 11
  send     ebct=4,0 -> EBCT: ,OK
  phone    spmi 1A046 -> 00 | spmi 18345 -> 3A | spmi 01348 -> 10 | spmi 18346 -> 11

modes without an effect on this charger
  send     ebct=0 | ebct=1,2 -> EBCT: ,OK
  phone    spmi 1049 -> 01
  phone    fail spmi 01049 1
  send     ebct=0 -> EBCT: ,ERROR

a bus that fails in the middle stops the sequence
  phone    fail spmi 01348 1
  send     ebct=4,1 -> EBCT: ,ERROR
  phone    spmi 1A046 -> 80 | spmi 18346 -> 00
  phone    fail spmi 01444 1
  send     ebct=2,500 -> EBCT: ,ERROR
  # a bus that doesn't answer is noticed before anything is written
  phone    spmi 1344 -> 05

other values
  send     ebct | ebct=3,0 -> EBCT: ,SYNTAX
  send     ebct=1 | ebct=4,2 -> EBCT: ,ERROR
  send     ebct=? -> EBCT:VBUS charging command,ebct      (0-3, 0-)                                         ebct(action[,current],[mode]),OK
