#: Powers up the WLAN radio.
#: wlpu[=0] | in test mode, for sending and receiving
#: wlpu=1 | as a station, for `wlscan`
#: The answer, one blank, comes at once; the slow part goes on beside the console, and the next WLAN command waits for it.
#: When that fails, all WLAN commands fail until `wlpd` and `wlpu`. The kernel module keeps the mode that it was first
#: loaded for until the phone starts anew. A radio that is up is `ERROR`.

test mode: the file system for writing, the module in its test mode, the tool
  #:
  send     wlpu -> WLPU: ,OK
  send     wlid -> WLID:1936,OK
  phone    shell 4 -> 0 mount -o rw,remount /system\n0 /system/bin/insmod /system/modules/pronto_wlan.ko con_mode=5\n0 wlanftmtest -e\n0 wlanftmtest -v

station mode: the module in its usual mode, and the interface
  send     wlpu=1 -> WLPU: ,OK
  send     wlscan -> WLSCAN:a0:f3:c1:2b:7d:18,OK
  phone    shell 4 -> 0 mount -o rw,remount /system\n0 /system/bin/insmod /system/modules/pronto_wlan.ko con_mode=0\n0 ifconfig wlan0 up\n0 iw wlan0 scan

a second power-up without a power-down is an error; the module keeps the mode of its first load
  send     wlpu?0 -> WLPU: ,OK
  send     wlpu=1 -> WLPU: ,ERROR
  send     wlpd -> WLPD: ,OK
  send     wlpu -> WLPU: ,OK
  send     wlid -> WLID:1936,OK
  phone    shell 3 -> 0 mount -o rw,remount /system\n0 wlanftmtest -e\n0 wlanftmtest -v
  send     wlpd -> WLPD: ,OK
  # the interface isn't there in this mode
  send     wlpu=1 -> WLPU: ,OK
  send     wlscan -> WLSCAN:Other error,ERROR

a power-up that fails leaves the driver stopped: commands fail, power-down and a new power-up bring it back
  phone    fail wlanftmtest -e
  send     wlpu -> WLPU: ,OK
  send     wlid -> WLID: ,ERROR
  send     wlpu -> WLPU: ,ERROR
  send     wtfd -> WTFD: ,ERROR
  send     wlpd -> WLPD: ,OK
  phone    shell 1 -> 0 /system/bin/insmod /system/modules/pronto_wlan.ko con_mode=5
  send     wlpu -> WLPU: ,OK
  send     wlid -> WLID:1936,OK
  phone    shell 3 -> 0 mount -o rw,remount /system\n0 wlanftmtest -e\n0 wlanftmtest -v

each earlier step that fails ends the power-up there
  phone    fail mount -o
  send     wlpu -> WLPU: ,OK
  send     wlpd -> WLPD: ,OK
  phone    shell 1 -> 0 echo 1 > /dev/wcnss_wlan
  phone    fail /system/bin/insmod
  send     wlpu -> WLPU: ,OK
  send     wlpd -> WLPD: ,OK
  phone    shell 1 -> 0 mount -o rw,remount /system
  send     wlpu -> WLPU: ,OK
  send     wlid -> WLID:1936,OK

a phone without the module can't be powered up
  conf     without /system/modules/pronto_wlan.ko
  send     wlpu -> WLPU: ,OK
  send     wlid -> WLID: ,ERROR
  phone    shell 1 -> 1 /system/bin/insmod /system/modules/pronto_wlan.ko con_mode=5

a mode above 1 does nothing in any form, the help leaves the radio alone
  send     wlpu=2 -> WLPU:Parameter out of range (0-1),ERROR
  send     wlpu=?2 -> WLPU:Parameter out of range (0-1),wlpu      (0,1)                                             start(),ERROR
  send     wlpu=? -> WLPU:WLAN power up,wlpu      (0,1)                                             start(),OK
  send     wlpu=0,1 -> wlpu      (0,1)                                             start(),SYNTAX
  send     wlid -> WLID: ,ERROR

the calibration file of the RF variant is linked in its place at each start, and the radio's processor takes it
  # "L1234578_20W12458" is what the healthy phone's voltage means
  phone    kmsg 1 -> phone: wcnss: calibration korvat_sella_WCNSS_qcom_wlan_nv.bin
  # "W12458"
  phone    unit 800009F7 57313234353800
  restart
  phone    kmsg 1 -> phone: wcnss: calibration korvat_WCNSS_qcom_wlan_nv.bin
  # "L1234578_20W12458"
  phone    unit 800009F7 4C313233343537385F323057313234353800
  restart
  phone    kmsg 1 -> phone: wcnss: calibration korvat_sella_WCNSS_qcom_wlan_nv.bin
  # "L124578_17W12458"
  phone    unit 800009F7 4C3132343537385F313757313234353800
  restart
  phone    kmsg 1 -> phone: wcnss: calibration korvat_sella_WCNSS_qcom_wlan_nv.bin
  # more than 31 characters
  phone    unit 800009F7 4C3132343537385F3137573132343538\*20{58}00
  restart
  phone    kmsg 1 -> phone: wcnss: calibration korvat_WCNSS_qcom_wlan_nv.bin
  phone    shell 2 -> 0 rm /system/etc/firmware/wlan/prima/WCNSS_qcom_wlan_nv.bin\n0 echo 1 > /dev/wcnss_wlan

a calibration file that isn't there is told, and the phone starts all the same
  conf     without /system/etc/firmware/wlan/prima/korvat_sella_WCNSS_qcom_wlan_nv.bin
  phone    kmsg 1 -> phone: wcnss: no calibration
  send     case? -> CASE:false,OK
