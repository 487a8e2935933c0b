#: Reads the identity of the Bluetooth controller.
#: btid[=0] | its revision as a text
#: btid=2 | its HCI revision, high byte and low byte: ` 0x..,0x..`
#: btid=3 | its LMP subversion in the same form
#: The first Bluetooth command after a start, whichever it is, also brings the controller up, which takes a moment; when
#: that fails the command fails, and the next one tries again. Type 1 fails always. A failure prints no line.

the first command of a fresh phone loads the driver, switches it on, brings the controller up and resets it
  #:
  send     btid -> BTID:BTFM 4.1.7 KORVAT,OK
  phone    shell 3 -> 0 insmod /system/modules/hci_smd.ko\n0 echo 1 > /sys/module/hci_smd/parameters/hcismd_set\n0 hciconfig hci0 up
  phone    hci recent -> 01030C00\n010FFC00
  file     /sys/module/hci_smd/parameters/hcismd_set -> 1\n

a second command finds the controller up: one command, no shell line, one socket
  send     btid=0 -> BTID:BTFM 4.1.7 KORVAT,OK
  phone    calls on
  send     btid? -> BTID:BTFM 4.1.7 KORVAT,OK
  phone    calls off | hci recent -> 01030C00\n010FFC00\n010FFC00 | files hci -> hci0

the two numbers are shown high byte first, and type 1 and all others fail without a line
  #:
  send     btid=2
  # revision 2B17
  expect   BTID: 0x2B,0x17,OK
  phone    hci last -> 01011000
  send     btid=3 -> BTID: 0x3C,0x41,OK
  send     btid=1 | btid=4 -> ERROR
  phone    hci recent -> 01030C00\n01011000\n01011000

an event that is cut anywhere, has another status or another code is a failure and shows nothing
  send     bthr -> BTHR: ,OK
  # the whole event would be 04 0E 0C 01 01 10 00 06 17 2B 06 1D 00 41 3C
  phone    hci 01011000 040E0C0101100006172B061D0041
  send     btid=3 -> ERROR
  phone    hci 01011000 040E0401011000
  send     btid=2 -> ERROR
  phone    hci 01011000 040E03010110
  send     btid=2 -> ERROR
  phone    hci 01011000 040E | clock hold
  send     btid=2 after 2200 -> ERROR
  phone    clock run | hci 01011000 040E0C010110010617E5061D00413C
  send     btid=2 -> ERROR
  # a Command Status that belongs to the command
  phone    hci 01011000 040F0400010110
  send     btid=2 -> ERROR
  # a code that nobody knows, with the command's opcode in it
  phone    hci 01011000 04220C010110000617E5061D00413C
  send     btid=2 -> ERROR
  phone    hci off
  send     btid=2 -> BTID: 0x2B,0x17,OK

a text ends at its zero or at the event's end, and no byte of an earlier event comes behind it
  send     btid -> BTID:BTFM 4.1.7 KORVAT,OK
  phone    hci 010FFC00 040E06010FFC004142
  send     btid -> BTID:AB,OK
  phone    hci 010FFC00 040E07010FFC00430044
  send     btid -> BTID:C,OK
  phone    hci 010FFC00 040E04010FFC00
  send     btid -> BTID:,OK

other events are dropped, and what is left unread belongs to no later command
  send     bthr -> BTHR: ,OK
  fails    hci 010FFC00 0413050101000100+ 1
  phone    hci 010FFC00 0413050101000100+040E0401030C00+040E06010FFC004142+040E06010FFC005858 1
  send     btid -> BTID:AB,OK
  send     btid -> BTID:BTFM 4.1.7 KORVAT,OK

a controller that doesn't answer is given up after 2 seconds, however many other events come
  send     bthr -> BTHR: ,OK
  phone    hci 010FFC00 \*40{0413050101000100+}040E0401030C00 | clock hold
  send     btid
  # 100 ms, then 2000
  phone    clock +2095
  after    10 -> ERROR
  phone    clock run | hci off
  send     btid -> BTID:BTFM 4.1.7 KORVAT,OK

a start that fails leads back to stopped, and the next command starts anew; a loaded module isn't loaded again
  phone    fail insmod /system/modules/hci_smd.ko
  send     btid -> ERROR
  phone    fail hciconfig hci0 up
  send     btid -> ERROR
  phone    fail hci_open_dev
  send     btid -> ERROR
  phone    fail setsockopt hci0
  send     btid -> ERROR
  phone    fail socket hci0
  send     btid -> ERROR
  # refused as often as the driver asks
  phone    fail ioctl hci0 300 | clock hold
  send     btid after 3200 -> ERROR
  phone    clock run | fail off -> 0 faults were never reached
  send     btid -> BTID:BTFM 4.1.7 KORVAT,OK
  phone    shell 3 -> 0 hciconfig hci0 up\n0 echo 1 > /sys/module/hci_smd/parameters/hcismd_set\n0 hciconfig hci0 up

a phone without the driver's file says so, each time
  conf     without /system/modules/hci_smd.ko
  send     btid | btid -> ERROR
  phone    shell 2 -> 1 insmod /system/modules/hci_smd.ko\n1 insmod /system/modules/hci_smd.ko

a failing reset at the end of a start fails the command, and the controller stays up
  phone    hci 01030C00 040E0401030C01 1
  send     btid -> ERROR
  send     btid -> BTID:BTFM 4.1.7 KORVAT,OK
  phone    hci recent -> 01030C00\n010FFC00

the help has five lines and leaves the controller alone
  send     btid=?
  expect   BTID:Retrieves bluetooth ID,BTID:ver(0=read revison text),BTID:ver(1=read chip id),BTID:ver(2=read hci revision),BTID:ver(3=read lmp subversion),
  + btid      (0-3)                                             id(type),OK
  send     btid=1,2 -> btid      (0-3)                                             id(type),SYNTAX
  phone    hci recent -> none
