#: Tells whether a plug is in the headset jack.
#: ajdt=0 | `0x1` with a plug, `0x0` without one, or when the phone can't tell

with a plug and without
  #:
  send     ajdt=0 -> AJDT:0x0,OK
  phone    jack headphones
  #:
  send     ajdt=0 -> AJDT:0x1,OK
  # the driver's first digit counts
  write    /sys/kernel/debug/wcd9xxx_plug_detect 05\n
  send     ajdt=0 -> AJDT:0x0,OK
  write    /sys/kernel/debug/wcd9xxx_plug_detect x
  send     ajdt=0 -> AJDT:0x0,OK
  write    /sys/kernel/debug/wcd9xxx_plug_detect 9
  send     ajdt=0 -> AJDT:0x1,OK
  phone    fail read /sys/kernel/debug/wcd9xxx_plug_detect
  send     ajdt=0 -> AJDT:0x0,OK

what is in the jack stays over a restart
  conf     jack headset
  send     ajdt=0 -> AJDT:0x1,OK
  phone    jack loop 5000
  restart
  phone    jack -> headset 1800

how it is asked for
  send     ajdt | ajdt=1 | ajdt?0 -> AJDT:,SYNTAX
  send     ajdt=? -> AJDT:Audio Jack connectivity test,ajdt      [(0)]                                             ajdt(),OK
