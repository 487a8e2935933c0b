#: Waits for a person's verdict on the picture behind the MHL bridge, and keeps it for `mhlr`.
#: mhls=1 | waits up to 26 seconds for a key: volume up or back for good, volume down or menu for bad. One blank and
#:   `OK` when a key was pressed, whichever; `ERROR` when none was or the verdict can't be kept. No other command is
#:   served meanwhile
#: mhls=0 | does nothing

a verdict for good, and one for bad
  phone    clock hold
  #: Somebody presses volume up, then volume down:
  send     mhls=1
  phone    clock +1500 | key 115 tap
  after    1000 -> MHLS: ,OK
  file     /system/modules/mhl_sii8334_result.txt -> 1
  send     mhls=1
  phone    clock +1500 | key 114 tap
  after    1000 -> MHLS: ,OK
  file     /system/modules/mhl_sii8334_result.txt -> 0
  # back is good too, menu bad; what a number above 1 says is on
  send     mhls=7
  phone    clock +100 | key 158 tap
  after    1000 -> MHLS: ,OK
  file     /system/modules/mhl_sii8334_result.txt -> 1
  send     mhls=1
  phone    clock +100 | key 139 tap
  after    1000 -> MHLS: ,OK
  file     /system/modules/mhl_sii8334_result.txt -> 0

other keys, releases and repeats are no verdict, and the first verdict holds
  phone    clock hold | key 115 down
  send     mhls=1
  phone    clock +500 | key 115 repeat | key 115 up | key 330 tap | key 258 tap | key 259 tap
  phone    key 116 down | clock +24000 | key 114 tap | key 115 tap
  after    1000 -> MHLS: ,OK
  file     /system/modules/mhl_sii8334_result.txt -> 0

nobody presses a key for 26 seconds
  phone    clock hold
  send     mhls=1
  phone    clock +25999
  after    1 -> MHLS: ,ERROR
  # a key before it doesn't count, and the station goes on
  phone    key 115 tap
  send     mhls=1 after 26000 -> MHLS: ,ERROR
  phone    clock run
  send     mhlr -> MHLR:0,ERROR

a device number that isn't there doesn't hide those behind it
  conf     without /dev/input/event0
  phone    clock hold
  send     mhls=1
  phone    clock +10
  # this code is on the second node
  phone    key 158 tap
  after    1000 -> MHLS: ,OK

a verdict that can't be kept
  phone    clock hold | fail open /system/modules/mhl_sii8334_result.txt
  send     mhls=1
  phone    clock +10 | key 115 tap
  after    1000 -> MHLS: ,ERROR

off, and values that are refused
  send     mhls=0 -> MHLS: ,OK
  send     mhls -> MHLS: ,SYNTAX
  send     mhls=? -> MHLS:Enable/Disable MHL,mhls      (0-1)                                             mhls(func) MHL switch,OK
