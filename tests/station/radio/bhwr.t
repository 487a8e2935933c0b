#: Sends any HCI command to the Bluetooth controller.
#: bhwr=1,OCF,OGF,LENGTH[,BYTE...] | the command before its group; LENGTH parameters, hexadecimal, of which missing ones
#:   are 0. Answers with the parameters of the event, its status first, each byte with a comma before it
#: bhwr=0,LOW,HIGH,LENGTH[,BYTE...] | the same with the two bytes of the opcode as they stand; answers with the whole event
#: After an event the status is `OK`. One that isn't a good Command Complete has as many of the command's own parameter
#: bytes shown as it is long. No event within 2 s is `ERROR` behind an empty line. Fewer than four values are `SYNTAX`
#: without a line.

mode 1 shows what a good event brings, its status first
  #:
  send     bhwr=1,9,4,0 -> BHWR:,0x00,0x5C,0x8E,0x2D,0x90,0x76,0x00,OK
  phone    hci recent -> 01030C00\n01091000
  send     bhwr?1,0x1A,0x03,1,03 -> BHWR:,0x00,OK
  phone    hci last -> 011A0C0103
  send     bhwr=1,0xF6,0x3F,0 -> BHWR:,0x00,0x00,0x11,0x22,0x33,0x44,OK

mode 0 sends the two bytes as they stand, and shows the whole event
  #:
  send     bhwr=0,9,0x10,0 -> BHWR:,0x04,0x0E,0x0A,0x01,0x09,0x10,0x00,0x5C,0x8E,0x2D,0x90,0x76,0x00,OK
  phone    hci last -> 01091000
  # of the command the low byte, of the group all
  send     bhwr=0,0x103,0x10C,0 -> BHWR:,0x04,0x0E,0x04,0x01,0x03,0x0C,0x00,OK
  phone    hci last -> 01030C00

an opcode is ten bits of command and six of group
  send     bthr -> BTHR: ,OK
  phone    hci 01FF 040E0401FFFF00
  send     bhwr=1,0x3FF,0x3F,0 -> BHWR:,0x00,OK
  phone    hci last -> 01FFFF00
  phone    hci 010110 040E0401011000
  send     bhwr=1,1,0x44,0 -> BHWR:,0x00,OK
  phone    hci last -> 01011000

parameters are hexadecimal; those that the text lacks are 0, and what the length doesn't cover stays here
  send     bthr -> BTHR: ,OK
  phone    hci 01 040E0401341200
  send     bhwr=1,0x234,4,5,AA,0xbb -> BHWR:,0x00,OK
  phone    hci last -> 01341205AABB000000
  send     bhwr=1,0x234,4,1,AA,BB -> BHWR:,0x00,OK
  phone    hci last -> 01341201AA
  send     bhwr=1,0x234,4,2 -> BHWR:,0x00,OK
  phone    hci last -> 013412020000
  # the low byte of the length: 0x104
  send     bhwr=1,0x234,4,260,1,2,3,4,5 -> BHWR:,0x00,OK
  phone    hci last -> 0134120401020304

a text of any length fills 255 parameters and no more
  send     bthr -> BTHR: ,OK
  phone    hci 01 040E0401341200
  send     bhwr=1,0x234,4,255,7\*400{,7} -> BHWR:,0x00,OK
  phone    hci last -> 013412FF\*255{07}

an event that isn't good shows as many of the parameters as it has bytes, and the status is OK
  send     bthr -> BTHR: ,OK
  phone    hci 01341201AA 040E040134120C
  send     bhwr=1,0x234,4,1,AA -> BHWR:,0xAA,0x00,0x00,0x00,0x00,0x00,0x00,OK
  phone    hci 01341201AA 040F0400013412
  send     bhwr=0,0x34,0x12,1,AA -> BHWR:,0xAA,0x00,0x00,0x00,0x00,0x00,0x00,OK
  phone    hci 01341201AA 040E03013412
  send     bhwr=0,0x34,0x12,1,AA -> BHWR:,0xAA,0x00,0x00,0x00,0x00,0x00,OK

the longest event is shown whole: 258 bytes
  send     bthr -> BTHR: ,OK
  phone    hci 01341200 040EFF01341200\*251{5A}
  send     bhwr=0,0x34,0x12,0 -> BHWR:,0x04,0x0E,0xFF,0x01,0x34,0x12,0x00\*251{,0x5A},OK
  # one more than an event can have
  phone    hci 01341200 040EFF01341200\*259{5A}
  send     bhwr=1,0x234,4,0 -> BHWR:,0x00\*253{,0x5A},OK

a command that isn't answered or can't be sent has failed
  send     bthr -> BTHR: ,OK
  phone    hci 01091000 silent 1
  send     bhwr=1,9,4,0 -> BHWR:,ERROR
  phone    fail hci_send_cmd hci0
  send     bhwr=1,9,4,0 -> BHWR:,ERROR
  phone    fail insmod
  send     bhwr=1,9,4,0 -> BHWR:,0x00,0x5C,0x8E,0x2D,0x90,0x76,0x00,OK
  phone    fail off -> 1 fault was never reached: insmod

fewer than four values, or a mode above 1, send nothing
  send     bhwr=1,9,4 | bhwr -> SYNTAX
  send     bhwr=2,9,4,0 -> BHWR:,ERROR
  phone    hci recent -> none
  send     bhwr=? -> BHWR:Bluetooth user defined HCI,bhwr      (0-1),(0x00-0x3ff),(0x00-0xff)                    hci(cmd),OK

a command that the controller doesn't know has its status shown as the parameters
  strange  any
  send     bhwr=1,5,8,0 -> BHWR:,0x00,0x00,0x00,0x00,0x00,0x00,0x00,OK
  phone    strange -> 1 hci command 2005
