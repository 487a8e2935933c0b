#: Runs the tests of the MHL bridge.
#: mhlt=3 | the monitor's data line (DDC): 1 good, 0 bad
#: mhlt=4 | hot plug: 1 when a monitor is plugged in; 0 and `ERROR` when the bridge doesn't see one
#: mhlt=5 | the chip's self test: its number, 1 good; 0 and `ERROR` when it can't run

a healthy bridge with a monitor, and without
  #:
  send     mhlt=3 -> MHLT:1,OK
  send     mhlt?4 | mhlt=5 -> MHLT:1,OK
  phone    sink out
  send     mhlt=3 -> MHLT:1,OK
  send     mhlt=4 -> MHLT:0,ERROR
  # the bridge sees a monitor, but its line is quiet
  write    /sys/kernel/debug/mdss_mhl/hpd 2\n
  send     mhlt=4 -> MHLT:0,OK
  phone    gpio 34 1
  send     mhlt=4 -> MHLT:1,OK

what the attributes may hold
  write    /sys/kernel/debug/mdss_mhl/selftest 0\n
  send     mhlt=5 -> MHLT:0,OK
  write    /sys/kernel/debug/mdss_mhl/selftest first\n-17 of them\n
  send     mhlt=5 -> MHLT:-17,OK
  write    /sys/kernel/debug/mdss_mhl/selftest none\n
  send     mhlt=5 -> MHLT:0,ERROR
  write    /sys/kernel/debug/mdss_mhl/selftest 99999999999\n
  send     mhlt=5 -> MHLT:0,ERROR
  write    /sys/kernel/debug/mdss_mhl/ddctest 
  send     mhlt=3 -> MHLT:0,OK
  write    /sys/kernel/debug/mdss_mhl/hpd \*5000{9}\n
  send     mhlt=4 -> MHLT:0,ERROR

a phone without the driver's tests
  conf     without /sys/kernel/debug/mdss_mhl/selftest
  conf     without /sys/kernel/debug/mdss_mhl/ddctest
  conf     without /sys/kernel/debug/mdss_mhl/hpd
  send     mhlt=3 -> MHLT:0,OK
  send     mhlt=4 | mhlt=5 -> MHLT:0,ERROR

other tests, counts, and the help
  send     mhlt | mhlt=2 | mhlt=6 -> MHLT: ,SYNTAX
  send     mhlt=?
  expect   MHLT:Run MHL BIST or HPD status test,mhlt      (3-5)                                             mhlt(act) Run DDC test, HPD stat,OK
