#: Reads the identity of the WLAN chip.
#: wlid[=0] | its number
#: wlid=1 | the version of its calibration data, which this phone doesn't tell: `NOT FOUND`
#: A failure is one blank and `ERROR`. A transmission is stopped first.

the number is shown as it is; without a value it is type 0
  send     wlpu -> WLPU: ,OK
  #:
  send     wlid=0 -> WLID:1936,OK
  phone    tool wlanftmtest -v -42 and more\\n
  send     wlid -> WLID:-42,OK
  phone    tool wlanftmtest -v \\n\\t 2147483647
  send     wlid? -> WLID:2147483647,OK

a result file that isn't there, is empty, no number, too large or without an end is an error
  send     wlpu -> WLPU: ,OK
  phone    tool wlanftmtest -v none
  send     wlid -> WLID: ,ERROR
  phone    tool wlanftmtest -v \\n
  send     wlid -> WLID: ,ERROR
  phone    tool wlanftmtest -v x1936
  send     wlid -> WLID: ,ERROR
  phone    tool wlanftmtest -v 2147483648
  send     wlid -> WLID: ,ERROR
  phone    tool wlanftmtest -v \*4000{9}
  send     wlid -> WLID: ,ERROR
  # a number that a reading would cut
  phone    tool wlanftmtest -v \*252{\\t}19361936
  send     wlid -> WLID: ,ERROR
  phone    tool off | fail read /data/ftm_response.txt
  send     wlid -> WLID: ,ERROR
  phone    fail wlanftmtest -v
  send     wlid -> WLID: ,ERROR
  send     wlid -> WLID:1936,OK

a transmission is stopped first, also before a type that there isn't
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  send     wlid -> WLID:1936,OK
  phone    shell 2 -> 0 wlanftmtest -s\n0 wlanftmtest -v
  send     wstx=1,0,1 -> WSTX: ,OK
  send     wlid=2 -> WLID: ,SYNTAX
  phone    shell 1 -> 0 wlanftmtest -z
  send     wstx=1,0,1 -> WSTX: ,OK
  phone    fail wlanftmtest -z
  send     wlid -> WLID: ,ERROR

the other identity isn't there
  send     wlid -> WLID: ,ERROR
  send     wlpu -> WLPU: ,OK
  send     wlid=1 -> WLID: ,NOT FOUND
  send     wlid=?
  expect   WLID:Retrieves WLAN ID,WLID:ver(0=read chip id),WLID:ver(1=read nvs version id),wlid      (1)                                               id(type),OK
  send     wlid=0,1 -> wlid      (1)                                               id(type),SYNTAX
