#: Restarts the phone.
#: kill[=0] | at once and without an answer; the greeting `TP,OK` tells that the phone is back
#: kill=1 | the same, behind a zero byte in its persistent unit 0x800008FD
#: kill=2 | the same, behind a marker of eight bytes in that unit
#: A phone that can't restart answers `ERROR` behind one blank, any other value is `SYNTAX`.

it restarts at once and says nothing
  send     kill
  reboots
  send     case? -> CASE:false,OK
  phone    shell 5 -> 0 reboot\n0 echo "Korvat HVT is starting up..." > /dev/kmsg\n0 echo "0x1b4 0x27" > /sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg\n0 rm /system/etc/firmware/wlan/prima/WCNSS_qcom_wlan_nv.bin\n0 echo 1 > /dev/wcnss_wlan

1 and 2 leave a marker in their unit first
  send     kill=2
  reboots
  phone    unit 0x800008FD -> C47E19A25D0BF368
  send     kill=1
  reboots
  phone    unit 0x800008FD -> 00
  send     kill=0
  reboots
  phone    unit 0x800008FD -> 00

a marker that can't be written doesn't keep the phone up
  phone    fail auxnvq_write_unit 1
  send     kill=2
  reboots
  phone    unit 0x800008FD -> none

a phone that refuses to restart says so
  phone    fail system reboot 1
  send     kill -> KILL: ,ERROR

what isn't 0 to 2 is a syntax error, and the help
  #: Nothing but 0 to 2:
  send     kill=3 -> KILL: ,SYNTAX
  send     kill=? -> KILL:Kill (restart) system.,kill      (0-2)                                             KILL(arg),OK
