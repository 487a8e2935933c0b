# smps switches the processors' supply rails. Its verdict is the answer: 0 switched, 1 not.

a rail goes off and on
  send     smps=2,0
  expect   SMPS:0,OK
  file     /sys/kernel/debug/regulator/krait2/enable -> 0
  send     smps=2,1
  expect   SMPS:0,OK
  file     /sys/kernel/debug/regulator/krait2/enable -> 1
  # on sets the level that it has
  file     /sys/kernel/debug/regulator/krait2/voltage -> 935000 935000

a rail that isn't there, or can't be written, isn't switched
  strange  any
  send     smps=7,0
  expect   SMPS:1,OK
  phone    fail write /sys/kernel/debug/regulator/krait0/enable
  send     smps=0,1
  expect   SMPS:1,OK

two values, and 0 or 1 for the second
  send     smps
  expect   SYNTAX
  send     smps=1
  expect   SYNTAX
  send     smps=?
  expect   SMPS:smps cpu regulator control test,smps      (0-9),(0-1)                                       smps(reg,op),OK
