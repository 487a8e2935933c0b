#: Reads registers of the power management chips.
#: spmir=0,ADDR,COUNT | ADDR is a number of 20 bits, the chip's slave in the upper four: 0 and 1 of PM8941, 4 and 5 of
#:   PM8841. COUNT is decimal, 1 to 4095 less the last hexadecimal digit of ADDR. Answers `0x..,0x..,` in any length;
#:   behind the last comma stands a zero byte and then the status word
#: A slave that doesn't answer is `ERROR` behind an empty line.
# Raw reading from the power management chips. Name and bytes go out without the limit of a line; the reply ends
# in a comma with a zero byte.

registers are read from an address on, the count in decimal
  phone    spmi 1D84D 5C | spmi 1D84E 6D
  #:
  send     spmir=0,0x1D84D,2 -> SPMIR:0x5c,0x6d,\0OK
  send     spmir?0,0x1D84D, 1\x20 -> SPMIR:0x5c,\0OK
  file     /sys/kernel/debug/spmi/spmi-0/address -> 0x1D84D\n
  file     /sys/kernel/debug/spmi/spmi-0/count -> 1\n

a dump that begins and ends within rows gives each byte in its place
  # the last two columns of a row, a whole row, the first two of the next
  phone    spmi 1D80E 1E | spmi 1D80F 1F | spmi 1D810 20 | spmi 1D81F 2F | spmi 1D820 30
  phone    spmi 1D821 31 | spmi 1D822 32
  send     spmir=0,0x1D80E,20
  read     SPMIR:0x1e,0x1f,0x20,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x00,0x2f,
  +        0x30,0x31,\0OK\r\n

only the low twenty bits of an address count
  phone    spmi 1D84D 5C
  send     spmir=0,0xFF11D84D,1 -> SPMIR:0x5c,\0OK

a count that doesn't fit is refused
  send     spmir=0,0x100,0 | spmir=0,0x100,4096 -> SPMIR:,SYNTAX
  # 4096 fields, of which the row's address and the columns before the first byte take some
  send     spmir=0,0x14001,4095 -> SPMIR:,SYNTAX

values that are missing are a syntax error, and the help
  send     spmir -> SYNTAX
  send     spmir=0 -> SPMIR:,SYNTAX
  send     spmir=? -> SPMIR: System Power Management Interface,
  +        spmir     (0),(0-0xFFFFF),(B)                               SPMIR(bus,reg,bytes),OK

a slave that doesn't answer, a register that fails and a bus that isn't there are errors
  send     spmir=0,0x20000,1 -> SPMIR:,ERROR
  phone    fail spmi 00104 1
  send     spmir=0,0x100,8 -> SPMIR:,ERROR
  phone    fail write /sys/kernel/debug/spmi/spmi-0/address
  send     spmir=0,0x104,1 -> SPMIR:,ERROR
  phone    fail read /sys/kernel/debug/spmi/spmi-0/data
  send     spmir=0,0x104,1 | spmir=1,0x104,1 -> SPMIR:,ERROR
  strange  any
