#: Reads the identity of the WLAN chip.
#: wlid[=0] | its number
#: wlid=1 | the version of its calibration data, which this phone doesn't tell: `NOT FOUND`
#: A failure is one blank and `ERROR`. A transmission is stopped first.

the number is shown as it is; without a value it is type 0
  send     wlpu
  expect   WLPU: ,OK
  #:
  send     wlid=0
  expect   WLID:1936,OK
  phone    tool wlanftmtest -v -42 and more\\n
  send     wlid
  expect   WLID:-42,OK
  phone    tool wlanftmtest -v \\n\\t 2147483647
  send     wlid?
  expect   WLID:2147483647,OK

a result file that isn't there, is empty, no number, too large or without an end is an error
  send     wlpu
  expect   WLPU: ,OK
  phone    tool wlanftmtest -v none
  send     wlid
  expect   WLID: ,ERROR
  phone    tool wlanftmtest -v \\n
  send     wlid
  expect   WLID: ,ERROR
  phone    tool wlanftmtest -v x1936
  send     wlid
  expect   WLID: ,ERROR
  phone    tool wlanftmtest -v 2147483648
  send     wlid
  expect   WLID: ,ERROR
  phone    tool wlanftmtest -v \*4000{9}
  send     wlid
  expect   WLID: ,ERROR
  # a number that a reading would cut
  phone    tool wlanftmtest -v \*252{\\t}19361936
  send     wlid
  expect   WLID: ,ERROR
  phone    tool off
  phone    fail read /data/ftm_response.txt
  send     wlid
  expect   WLID: ,ERROR
  phone    fail wlanftmtest -v
  send     wlid
  expect   WLID: ,ERROR
  send     wlid
  expect   WLID:1936,OK

a transmission is stopped first, also before a type that there isn't
  send     wlpu
  expect   WLPU: ,OK
  send     wbtx
  expect   WBTX: ,OK
  send     wlid
  expect   WLID:1936,OK
  phone    shell 2 -> 0 wlanftmtest -s\n0 wlanftmtest -v
  send     wstx=1,0,1
  expect   WSTX: ,OK
  send     wlid=2
  expect   WLID: ,SYNTAX
  phone    shell 1 -> 0 wlanftmtest -z
  send     wstx=1,0,1
  expect   WSTX: ,OK
  phone    fail wlanftmtest -z
  send     wlid
  expect   WLID: ,ERROR

the other identity isn't there
  send     wlid
  expect   WLID: ,ERROR
  send     wlpu
  expect   WLPU: ,OK
  send     wlid=1
  expect   WLID: ,NOT FOUND
  send     wlid=?
  expect   WLID:Retrieves WLAN ID,WLID:ver(0=read chip id),WLID:ver(1=read nvs version id),wlid      (1)                                               id(type),OK
  send     wlid=0,1
  expect   wlid      (1)                                               id(type),SYNTAX
