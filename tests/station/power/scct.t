#: Switches charging over the phone's own contacts, and tells what feeds the phone.
#: scct=1[,BATTERY[,INPUT]] | charging on, with the limits of `vbcct`; answers with the charger's status in
#:   hexadecimal: on the virtual phone 0x0 nothing feeds it, 0x1 a USB host, 0x2 a wall charger, 0x3 a simple charger
#:   at the contacts
#: scct=0 | charging off; answers with one blank
#: A current that is no step, or another action, is `ERROR` behind one blank.

charging answers with the charger's status
  conf     charger simple
  #:
  send     scct=1,1500,2000 -> SCCT:0x3,OK
  # code 30, index 20
  phone    spmi 1049 -> 80 | spmi 1044 -> 1E | spmi 1444 -> 14
  send     scct=0 -> SCCT: ,OK
  phone    spmi 1049 -> 01
  phone    charger none
  send     scct=1 -> SCCT:0x0,OK
  phone    charger usb
  send     scct=1 -> SCCT:0x1,OK
  phone    charger wall
  send     scct=1 -> SCCT:0x2,OK

a current that is no step, or a bus that fails, is an error
  send     scct=1,1501 -> SCCT: ,ERROR
  phone    spmi 1049 -> 01
  phone    fail spmi 01308 1
  send     scct=1 -> SCCT: ,ERROR

other values
  send     scct -> SCCT: ,SYNTAX
  send     scct=2 -> SCCT: ,ERROR
  send     scct=?
  expect   SCCT:Simple Charging Control Test command,scct      (0-3, 0-)                                         scct(action[,current],[mode]),OK
