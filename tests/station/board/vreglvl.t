#: Reads or sets the voltage of a regulator.
#: vreglvl?"NAME" | the level and its limits, `LEVEL,MIN,MAX` in mV
#: vreglvl="NAME",LEVEL | sets the level, in mV; answers with an empty line
#: vreglvl=? | the names of the regulators

the level is read with its limits, cut to whole mV
  #:
  send     vreglvl?"krait0" -> VREGLVL:945,500,1100,OK
  write    /sys/kernel/debug/regulator/krait0/voltage 812999\n
  send     vreglvl?"krait0" -> VREGLVL:812,500,1100,OK

the level is set in uV, as both limits of the vote
  #:
  send     vreglvl="8941_l22",3100 -> VREGLVL:,OK
  file     /sys/kernel/debug/regulator/8941_l22/voltage -> 3100000 3100000
  send     vreglvl?"8941_l22" -> VREGLVL:3100,2500,3300,OK
  # more uV than fit 32 bits
  send     vreglvl="8941_l22",3000000 -> VREGLVL:,OK
  file     /sys/kernel/debug/regulator/8941_l22/voltage -> 3000000000 3000000000

an attribute that fails is an error
  phone    fail read /sys/kernel/debug/regulator/krait1/krait1/min_uV
  send     vreglvl?"krait1" -> VREGLVL:,ERROR
  phone    fail write /sys/kernel/debug/regulator/krait1/voltage
  send     vreglvl="krait1",900 | vreglvl?"none" -> VREGLVL:,ERROR
  strange  any

any other count is a syntax error, and the help
  send     vreglvl | vreglvl="krait0" -> VREGLVL:,SYNTAX
  send     vreglvl=? -> VREGLVL:0 - krait0,VREGLVL:1 - krait1,VREGLVL:2 - krait2,VREGLVL:3 - krait3,VREGLVL:4 - 8841_s1,
  +        VREGLVL:5 - 8841_s2,VREGLVL:6 - 8941_s1,VREGLVL:7 - 8941_s2,VREGLVL:8 - 8941_s3,VREGLVL:9 - 8941_l6,
  +        VREGLVL:10 - 8941_l13,VREGLVL:11 - 8941_l17,VREGLVL:12 - 8941_l22,VREGLVL:13 - 8941_lvs1,
  +        VREGLVL:Set/get voltage regulator voltage,VREGLVL:Read response: <lvl>, <min>, <max>,
  +        vreglvl   "regulator",W                                     vreglvl(regulator,level),OK
