#: Writes registers of the power management chips.
#: spmiw=0,ADDR,DATA[,DATA...] | ADDR as with `spmir`; DATA are decimal bytes for the registers from ADDR on, at most
#:   3276 of them. Answers with an empty line
#: What doesn't take a byte, or a longer list, of which nothing is written, is `ERROR` behind an empty line.

bytes go into the registers from an address on
  #:
  send     spmiw=0,0x14F40,17,34,255 -> SPMIW:,OK
  phone    spmi 14F40 -> 11 | spmi 14F41 -> 22 | spmi 14F42 -> FF
  send     spmiw?0,0x14F40, 1 , 2 -> SPMIW:,OK
  phone    spmi 14F40 -> 01 | spmi 14F41 -> 02

a list as long as the kernel takes in one go is written whole, a longer one not at all
  # 16388 characters of text, five each: 3276 bytes; the registers go on past the end of the linear regulators
  send     spmiw=0,0x14000\*3276{,7} -> SPMIW:,OK
  phone    spmi 14000 -> 07 | spmi 14CCB -> 07 | spmi 14CCC -> 00
  send     spmiw=0,0x14000\*3277{,8} -> SPMIW:,ERROR
  phone    spmi 14CCC -> 00

values that are missing are a syntax error, and the help
  send     spmiw -> SYNTAX
  send     spmiw=0,0x100 -> SPMIW:,SYNTAX
  send     spmiw=0,0x14F40, -> SPMIW:,ERROR
  send     spmiw=? -> SPMIW: System Power Management Interface,
  +        spmiw     (0),(0-0xFFFFF),(B),[,(B),...]                    SPMIW(bus,reg,data1[,data2,...]),OK

what doesn't take a byte is an error
  phone    spmi 14F40 5C
  send     spmiw=0,0x20000,1 -> SPMIW:,ERROR
  phone    fail spmi 14F40 1
  send     spmiw=0,0x14F40,1 -> SPMIW:,ERROR
  phone    fail open /sys/kernel/debug/spmi/spmi-0/data
  send     spmiw=0,0x14F40,1 -> SPMIW:,ERROR
  phone    spmi 14F40 -> 5C
  send     spmiw=3,0x14F40,1 -> SPMIW:,ERROR
  strange  any
