#: Works on the persistent units, the numbered byte strings that keep the phone's calibration and identity.
#: tact | whether the main store is open: `0x1` or `0x0`
#: tact=1 | opens the main store; `ERROR` when it is open
#: tact=0 | closes it; `ERROR` when it is closed
#: tact=7 | lists all units, `0x..,0x..,`; those of the auxiliary store have bit 31 set. The store must be closed and
#:   is closed afterwards
#: tact=11,UNIT | the unit's bytes, `0x..,0x..,`; `UNIT is not registerd` and `ERROR` when there is none. Store open,
#:   for an auxiliary unit too
#: tact=11,UNIT,BYTE[,BYTE...] | writes the unit, up to 1022 bytes. Store open
#: tact=8,UNIT | removes a unit of the main store. Store open
#: tact=3 | formats the main store. Store closed
#: tact=4 | moves the modem's NV memory into the store and waits until that is done
#: tact=4,1 | one step of the same: `1` while it runs, `0` when it is done, `0` and `ERROR` when it failed
#: tact=10,SOURCE,DESTINATION | the same as `tact=4`; the numbers don't count. Store open
#: tact=2[,UNIT] | moves units to the modem, which this phone can't: `ERROR`. With UNIT the store must be closed
#: tact=5 | no effect, and neither has `tact=6`: this store has no transactions. Store open
#: tact=9 | the write mode, `0x2`. Store open
#: tact=12,N | writes all units of the main store below 0xFFFFFF with up to 8000 bytes to /data/ram_dump1.txt (N 1) or
#:   /data/ram_dump2.txt (N 2), which takes long; after N 2, `ERROR` when the two files differ. Store open
#: Numbers are decimal or hexadecimal behind `0x`, blanks among them don't matter. What is refused or fails is `ERROR`
#: behind an empty line.
# The persistent units. In a list the status follows the last comma directly.

a new phone has its main store closed, and the status is told for both actions
  send     tact -> TACT:0x0,OK
  #:
  send     tact=1 -> TACT:,OK
  send     tact? -> TACT:0x1,OK
  send     tact=1 -> TACT:,ERROR
  send     tact=0 -> TACT:,OK

a unit of the main store can be reached only while the store is open, and one that isn't there is named
  phone    unit EB3C 01020304
  send     tact=11,60220,9 -> TACT:,ERROR
  phone    unit EB3C -> 01020304
  send     tact=1 -> TACT:,OK
  #: With the store open, four bytes of unit 60220; of a number only the low byte counts:
  send     tact=11,60220,9,0x0A,255,256 -> TACT:,OK
  phone    unit EB3C -> 090AFF00
  #:
  send     tact=11,77 -> TACT:77 is not registerd,ERROR
  # blanks in the values are taken out
  send     tact= 1 1 , 0 X EB3C\x20 -> TACT:0x09,0x0a,0xff,0x00,OK

an auxiliary unit needs the store open too, by this command, and is kept over a restart
  send     tact=11,0x80001363 -> TACT:,ERROR
  send     tact=1 | tact=11,0x80001363,1,2,3 -> TACT:,OK
  phone    unit 0x80001363 -> 010203
  restart
  send     tact=1 -> TACT:,OK
  send     tact=11,0x80001363 -> TACT:0x01,0x02,0x03,OK

a unit can be removed from the main store only, and a format empties that
  phone    unit 5 AA
  send     tact=1 | tact=8,5 -> TACT:,OK
  phone    unit 5 -> none
  send     tact=8,0x80001363 -> TACT:,ERROR
  send     tact=0 | tact=3,1 -> TACT:,OK
  phone    unit EB3C -> none | unit 80001363 -> 02FE05

the list has the main units and then the auxiliary ones, ascending, without those from 0x10000 on
  phone    unit 1 00 | unit 10001 00 | unit 80010000 00 | unit 80000000 00 | unit 8000FFFF 00
  send     tact=7 -> TACT:0x1,0xeb2b,0xeb3c,0x10001,0x80000000,0x80000866,0x800009f7,0x80001324,0x80001356,
  +        0x80001363,0x80001364,0x80001365,0x80001366,0x8000ffff,OK
  send     tact=1 -> TACT:,OK
  send     tact=7 -> TACT:,ERROR

transactions and the write mode want the store open
  send     tact=9 -> TACT:,ERROR
  send     tact=1 | tact=5 | tact=6 -> TACT:,OK
  send     tact=9 -> TACT:0x2,OK

no transfer to the modem, anything else is a syntax error, with two items without a line, and the help
  send     tact=2 -> TACT:,ERROR
  send     tact=11 -> TACT:,SYNTAX
  send     tact=10,1 -> SYNTAX
  send     tact=? -> TACT:TA control,TACT:TACT                - Get TA status,TACT:TACT=0              - Close TA,
  +        TACT:TACT=1              - Open TA,TACT:TACT=2[,<unit>]     - Transfer TA unit(s) to NV,
  +        TACT:TACT=3              - Format TA,TACT:TACT=4              - Transfer NV to TA (blocking),
  +        TACT:TACT=4,1            - Transfer NV to TA (non-blocking),
  +        TACT:TACT=7              - Return all units found in TA,
  +        TACT:TACT=8,<unit>       - Delete specified unit from TA,
  +        TACT:TACT=10,<src>,<dst> - Transfer NV unit <src> to TA unit <dst>,
  +        TACT:TACT=11,<unit>[,<data...>] - Read/Write data from/to TA,
  +        tact      [(0-10)[,<unit nr>][,<unit nr>][,...]]            ctrl(act,unit,unit),OK

a unit takes as many bytes as a line can name, and no more are cut off
  # 1022 bytes and the two items before them
  send     tact=1 | tact=11,3\*146{,1,2,3,4,5,6,7} -> TACT:,OK
  phone    unit 3 -> \*146{01020304050607}
  send     tact=11,3\*146{,1,2,3,4,5,6,7},8 -> TACT:,SYNTAX

a store that fails is an error, and the unit keeps its bytes
  send     tact=1 -> TACT:,OK
  phone    fail ta_write 0xEB3C 1
  send     tact=11,60220,1 -> TACT:,ERROR
  phone    unit EB3C -> 412B2B41
  phone    fail ta_read
  send     tact=11,60220 -> TACT:60220 is not registerd,ERROR
  send     tact=0 -> TACT:,OK
  phone    fail ta_open
  send     tact=1 -> TACT:,ERROR

a walk that can't go on to the auxiliary units ends closed and says so
  phone    fail ta_open 0x2 1
  send     tact=7 -> TACT:0xeb2b,0xeb3c,ERROR
  send     tact -> TACT:0x0,OK

a dump holds the units of the main store up to 8000 bytes, and the second one is compared with the first
  phone    unit 1 \*8001{5A} | unit 2 \*8000{5A} | unit 7 -
  phone    unit 10 000102030405060708090A0B0C0D0E0F | unit 11 000102030405060708090A0B0C0D0E0F10
  phone    unit FFFFFE EE | unit FFFFFF FF
  send     tact=1 | tact=12,1 -> TACT:,OK
  # 500 rows
  file     /data/ram_dump1.txt -> 00000002 : \*499{5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A \n           }
  +        5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A 5A \n
  +        00000010 : 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F \n
  +        00000011 : 00 01 02 03 04 05 06 07 08 09 0A 0B 0C 0D 0E 0F \n\x20          10 \n
  +        0000EB2B : 03 E8 \n0000EB3C : 41 2B 2B 41 \n00FFFFFE : EE \n
  send     tact=12,2 -> TACT:,OK
  phone    unit EB3C 412B2B42
  send     tact=12,2 -> TACT:,ERROR

the modem's NV memory is moved into the store, in steps or until it is done
  phone    clock hold
  send     tact=4,1 after 20 -> TACT:1,OK
  phone    diag last -> 4B0B0080070000000000000000000000
  phone    clock +400
  send     tact=4,1 after 20 -> TACT:0,OK
  send     tact=4
  phone    clock +200
  after    400 -> TACT:,OK
  # a transfer to a unit is the same
  send     tact=1 -> TACT:,OK
  send     tact=10,5,6
  phone    clock +200
  after    400 -> TACT:,OK
  phone    diag last -> 4B0B0080070000000000000000000000

a modem that fails or answers nothing makes a transfer fail
  phone    diag 4B0B008007 4B0B0080070000000000020000000000 1
  send     tact=4,1 -> TACT:0,ERROR
  phone    diag 4B0B008007 empty 1
  send     tact=4 -> TACT:,ERROR
