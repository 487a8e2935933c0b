#: Reads the identity of the main chip from its fuses.
#: msmv | device, feature and version, hexadecimal; `ERROR` behind one blank when they can't be read

the three numbers are hexadecimal
  # 497 = 0x1F1, 17 = 0x11
  #:
  send     msmv -> MSMV:0x1f1,0x2,0x11,OK

a value is a syntax error of the line, and the help
  send     msmv=1 -> msmv                                                        MSMV,SYNTAX
  send     msmv=? -> MSMV:Product device ID, Feature ID, Version ID,
  +        msmv                                                        MSMV,OK

a file that can't be read, or holds too little, is an error
  phone    fail open /sys/kernel/debug/msm/msmv
  send     msmv -> MSMV: ,ERROR
  write    /sys/kernel/debug/msm/msmv 1 20\n
  send     msmv -> MSMV: ,ERROR
