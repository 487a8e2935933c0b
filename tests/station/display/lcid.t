#: Reads the identity of the panel.
#: lcid | its eight bytes, `0x..,0x..`; so do `lcid=0` to `lcid=2`. `ERROR` behind an empty line when it has none
#: lcid=3[,FIELD] | one field of it: 1 the vendor, `JDI`, `SHARP` or `UNKNOWN`; 3 the year of manufacture; 4 the date,
#:   as in `20130923`; 2, 5 and 6 numbers, hexadecimal; any other, or none, the first three bytes as one number
#: No screen need be started.
# The panel's record is 56 73 7B 1C 04 A8 39 D2.

the identity is the eight bytes of the record, without a screen too
  #:
  send     lcid -> LCID:0x56,0x73,0x7b,0x1c,0x04,0xa8,0x39,0xd2,OK
  send     lcid=2 -> LCID:0x56,0x73,0x7b,0x1c,0x04,0xa8,0x39,0xd2,OK
  file     /sys/kernel/debug/mdss_dsi_panel/read -> dcs 8 a1 00

mode 3 gives one field of it
  # 0x56 = 01 0101 1 0, 0x73 = 011 1001 1, 0x7B = 0111 1011
  send     lcid=3,1 -> LCID:JDI,OK
  # month 1001 = 9, day 1 0111 = 23
  #:
  send     lcid=3,4 -> LCID:20130923,OK
  send     lcid=3 -> LCID:0x56737B,OK

a driver that doesn't take the question gives no identity
  phone    fail write /sys/kernel/debug/mdss_dsi_panel/read 1
  send     lcid -> LCID:,ERROR

a phone without the panel's debugfs has no identity
  conf     without /sys/kernel/debug/mdss_dsi_panel/result
  send     lcid -> LCID:,ERROR

the accepted values
  send     lcid=? -> LCID:Print LCD HW ID.,lcid      [(0-3)][,(0-6)]                                   lcd_id(mode[,sub_mode]),OK
