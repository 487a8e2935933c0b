#: Reads the verdict that `mhls` has kept.
#: mhlr | 1 good, 0 bad; 0 and `ERROR` when there is none

a verdict of a former test
  send     mhlr -> MHLR:0,ERROR
  write    /system/modules/mhl_sii8334_result.txt 1
  #:
  send     mhlr -> MHLR:1,OK
  restart
  send     mhlr? -> MHLR:1,OK
  write    /system/modules/mhl_sii8334_result.txt 0
  send     mhlr -> MHLR:0,OK
  write    /system/modules/mhl_sii8334_result.txt x1
  send     mhlr -> MHLR:0,OK
  write    /system/modules/mhl_sii8334_result.txt 
  send     mhlr -> MHLR:0,ERROR

values and help
  send     mhlr=1 -> mhlr                                                        mhlr(void) MHL read,SYNTAX
  send     mhlr=? -> MHLR:Read MHL Test Result,mhlr                                                        mhlr(void) MHL read,OK
