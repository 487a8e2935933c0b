#: Sets the mode of a voltage regulator.
#: vregmode="NAME",MODE | 1 fast, 2 normal, 4 idle, 8 standby; the number goes to the regulator as it is. Answers with
#:   an empty line
#: vregmode=? | the names of the regulators

the mode is written as it is
  #:
  send     vregmode="krait1",8 -> VREGMODE:,OK
  file     /sys/kernel/debug/regulator/krait1/mode -> 8
  send     vregmode?"krait1",-1 -> VREGMODE:,OK
  file     /sys/kernel/debug/regulator/krait1/mode -> -1

an attribute that fails or isn't there is an error
  phone    fail write /sys/kernel/debug/regulator/krait1/mode
  send     vregmode="krait1",1 | vregmode="none",1 -> VREGMODE:,ERROR
  strange  any

any other count is a syntax error, and the help
  send     vregmode | vregmode=,1 -> VREGMODE:,SYNTAX
  send     vregmode=? -> VREGMODE:0 - krait0,VREGMODE:1 - krait1,VREGMODE:2 - krait2,VREGMODE:3 - krait3,
  +        VREGMODE:4 - 8841_s1,VREGMODE:5 - 8841_s2,VREGMODE:6 - 8941_s1,VREGMODE:7 - 8941_s2,
  +        VREGMODE:8 - 8941_s3,VREGMODE:9 - 8941_l6,VREGMODE:10 - 8941_l13,VREGMODE:11 - 8941_l17,
  +        VREGMODE:12 - 8941_l22,VREGMODE:13 - 8941_lvs1,
  +        VREGMODE:Set voltage regulator mode (1=fast, 2=normal, 4=idle, 8=standby),
  +        vregmode  "regulator",W                                     vregmode(regulator,mode),OK
