#: Reads the voltage setting of the processor from the main chip's fuses.
#: pvsr=1 | the setting, hexadecimal; any other value, or none, is `SYNTAX` behind one blank, and a setting that can't
#:   be read `ERROR` behind one blank

the setting is hexadecimal
  #:
  send     pvsr=1 -> PVSR:0x3,OK
  write    /sys/kernel/debug/msm/pvsr 27\n
  send     pvsr?1 -> PVSR:0x1b,OK

any value but 1 is a syntax error, and the help
  send     pvsr | pvsr=2 -> PVSR: ,SYNTAX
  send     pvsr=? -> PVSR:Read processor voltage setting,pvsr      1                                                 PVSR,OK

a file that can't be read, or holds no number, is an error
  phone    fail open /sys/kernel/debug/msm/pvsr
  send     pvsr=1 -> PVSR: ,ERROR
  write    /sys/kernel/debug/msm/pvsr none\n
  send     pvsr=1 -> PVSR: ,ERROR
