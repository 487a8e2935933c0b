#: Switches a voltage regulator on or off.
#: vregctl="NAME",ON | NAME is one of those that `vregctl=?` lists, such as `8941_l17`; ON 0 off, any other number on.
#:   An enable votes for the present level first. Answers with an empty line
#: vregctl=? | the names of the regulators
# Voltage regulators, on and off. An enable votes for the present level first.

a regulator goes on at its present level, and off
  #:
  send     vregctl="8941_l17",1 -> VREGCTL:,OK
  file     /sys/kernel/debug/regulator/8941_l17/enable -> 1
  file     /sys/kernel/debug/regulator/8941_l17/voltage -> 2850000 2850000
  send     vregctl="8941_l17",0 -> VREGCTL:,OK
  file     /sys/kernel/debug/regulator/8941_l17/enable -> 0
  send     vregctl?"8941_l17",7 -> VREGCTL:,OK
  file     /sys/kernel/debug/regulator/8941_l17/enable -> 1

a regulator whose level can't be read goes on as it is
  phone    fail open /sys/kernel/debug/regulator/8941_l17/8941_l17/max_uV
  send     vregctl="8941_l17",1 -> VREGCTL:,OK
  file     /sys/kernel/debug/regulator/8941_l17/voltage -> 2850000\n
  file     /sys/kernel/debug/regulator/8941_l17/enable -> 1

a level that can't be written ends an enable
  phone    fail write /sys/kernel/debug/regulator/8941_l17/voltage
  send     vregctl="8941_l17",1 -> VREGCTL:,ERROR
  file     /sys/kernel/debug/regulator/8941_l17/enable -> 0\n

values that are missing are an error, and so is a name that leads elsewhere
  send     vregctl | vregctl="",1 | vregctl="../regulator/krait0",0 -> VREGCTL:,ERROR
  file     /sys/kernel/debug/regulator/krait0/enable -> 1\n

a regulator that isn't there isn't made
  send     vregctl="none",0 -> VREGCTL:,ERROR
  phone    strange -> 1 open /sys/kernel/debug/regulator/none/enable
  strange  any

the help lists the regulators
  send     vregctl=? -> VREGCTL:0 - krait0,VREGCTL:1 - krait1,VREGCTL:2 - krait2,VREGCTL:3 - krait3,VREGCTL:4 - 8841_s1,
  +        VREGCTL:5 - 8841_s2,VREGCTL:6 - 8941_s1,VREGCTL:7 - 8941_s2,VREGCTL:8 - 8941_s3,VREGCTL:9 - 8941_l6,
  +        VREGCTL:10 - 8941_l13,VREGCTL:11 - 8941_l17,VREGCTL:12 - 8941_l22,VREGCTL:13 - 8941_lvs1,
  +        VREGCTL:Enable/disable voltage regulator,
  +        vregctl   "regulator",(0-1)                                 vregctl(regulator,on/off),OK
