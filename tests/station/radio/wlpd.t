#: Powers down the WLAN radio, whatever it does.
#: wlpd | one blank; `ERROR` when it isn't up

a radio that is up is disabled, and then asks for a power-up again
  send     wlpu -> WLPU: ,OK
  #:
  send     wlpd -> WLPD: ,OK
  phone    shell 1 -> 0 wlanftmtest -d
  send     wlpd -> WLPD: ,ERROR
  send     wlid -> WLID: ,ERROR

it ends whatever runs: no stop of the transmission before it, and the next burst says all again
  send     wlpu -> WLPU: ,OK
  send     wstx=6,0,1 -> WSTX: ,OK
  send     wlpd? -> WLPD: ,OK
  phone    shell 2 -> 0 wlanftmtest -c 6 -w 0 -y\n0 wlanftmtest -d
  send     wlpu -> WLPU: ,OK
  send     wsrx=1,6 -> WSRX: ,OK
  send     wbtx=6 -> WBTX: ,OK
  send     widl -> WIDL: ,OK
  phone    shell 3 -> 0 wlanftmtest -c 6 -w 0 -a\n0 wlanftmtest -A -c 6 -r 3 -p 4 -i 200 -l 1000 -w 0 -g 25 -o 0 -G 1\n0 wlanftmtest -s
  send     wlpd -> WLPD: ,OK
  send     wlpu -> WLPU: ,OK
  # neither channel is remembered
  send     wbtx=6 -> WBTX: ,OK
  send     wsrx=1,6 -> WSRX: ,OK
  phone    shell 4 -> 0 wlanftmtest -A -c 6 -r 3 -p 4 -i 200 -l 1000 -w 0 -g 25 -o 0 -G 1\n0 wlanftmtest -s\n0 wlanftmtest -q\n0 wlanftmtest -c 6 -w 0 -a

a tool that fails leaves the driver as it was, and the station's view is down all the same
  send     wlpu -> WLPU: ,OK
  send     wlid -> WLID:1936,OK
  phone    fail wlanftmtest -d
  send     wlpd -> WLPD: ,OK
  phone    fail off -> 0 faults were never reached
  send     wlid -> WLID: ,ERROR
  send     wlpu -> WLPU: ,OK
  send     wlid -> WLID:1936,OK
  phone    shell 2 -> 0 wlanftmtest -v\n0 wlanftmtest -v

it takes no value, and has a help
  send     wlpd=1 -> wlpd                                                        stop(),SYNTAX
  send     wlpd=? -> WLPD:WLAN power down,wlpd                                                        stop(),OK
  send     wlpd -> WLPD: ,ERROR
