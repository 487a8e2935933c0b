#: Powers down the WLAN radio, whatever it does.
#: wlpd | one blank; `ERROR` when it isn't up

a radio that is up is disabled, and then asks for a power-up again
  send     wlpu
  expect   WLPU: ,OK
  #:
  send     wlpd
  expect   WLPD: ,OK
  phone    shell 1 -> 0 wlanftmtest -d
  send     wlpd
  expect   WLPD: ,ERROR
  send     wlid
  expect   WLID: ,ERROR

it ends whatever runs: no stop of the transmission before it, and the next burst says all again
  send     wlpu
  expect   WLPU: ,OK
  send     wstx=6,0,1
  expect   WSTX: ,OK
  send     wlpd?
  expect   WLPD: ,OK
  phone    shell 2 -> 0 wlanftmtest -c 6 -w 0 -y\n0 wlanftmtest -d
  send     wlpu
  expect   WLPU: ,OK
  send     wsrx=1,6
  expect   WSRX: ,OK
  send     wbtx=6
  expect   WBTX: ,OK
  send     widl
  expect   WIDL: ,OK
  phone    shell 3 -> 0 wlanftmtest -c 6 -w 0 -a\n0 wlanftmtest -A -c 6 -r 3 -p 4 -i 200 -l 1000 -w 0 -g 25 -o 0 -G 1\n0 wlanftmtest -s
  send     wlpd
  expect   WLPD: ,OK
  send     wlpu
  expect   WLPU: ,OK
  # neither channel is remembered
  send     wbtx=6
  expect   WBTX: ,OK
  send     wsrx=1,6
  expect   WSRX: ,OK
  phone    shell 4 -> 0 wlanftmtest -A -c 6 -r 3 -p 4 -i 200 -l 1000 -w 0 -g 25 -o 0 -G 1\n0 wlanftmtest -s\n0 wlanftmtest -q\n0 wlanftmtest -c 6 -w 0 -a

a tool that fails leaves the driver as it was, and the station's view is down all the same
  send     wlpu
  expect   WLPU: ,OK
  send     wlid
  expect   WLID:1936,OK
  phone    fail wlanftmtest -d
  send     wlpd
  expect   WLPD: ,OK
  phone    fail off -> 0 faults were never reached
  send     wlid
  expect   WLID: ,ERROR
  send     wlpu
  expect   WLPU: ,OK
  send     wlid
  expect   WLID:1936,OK
  phone    shell 2 -> 0 wlanftmtest -v\n0 wlanftmtest -v

it takes no value, and has a help
  send     wlpd=1
  expect   wlpd                                                        stop(),SYNTAX
  send     wlpd=?
  expect   WLPD:WLAN power down,wlpd                                                        stop(),OK
  send     wlpd
  expect   WLPD: ,ERROR
