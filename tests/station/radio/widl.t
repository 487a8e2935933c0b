#: Stops the WLAN transmission.
#: widl | one blank; `OK` also when there is none, `ERROR` when it can't be stopped or the radio isn't up

a burst and a static transmission each end in their own way, and only once
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  #:
  send     widl -> WIDL: ,OK
  phone    shell 1 -> 0 wlanftmtest -s
  send     wstx=6,0,1 -> WSTX: ,OK
  send     widl? | widl -> WIDL: ,OK
  phone    shell 2 -> 0 wlanftmtest -c 6 -w 0 -y\n0 wlanftmtest -z

a transmission that can't be stopped is an error, and the next attempt ends it
  send     widl -> WIDL: ,ERROR
  send     wlpu -> WLPU: ,OK
  send     wstx=6,0,1 -> WSTX: ,OK
  phone    fail wlanftmtest -z
  send     widl -> WIDL: ,ERROR
  send     widl -> WIDL: ,OK
  phone    shell 1 -> 0 wlanftmtest -z

a test form, a second power-up, the power and a calibration item leave a transmission alone
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  send     wlpu -> WLPU: ,ERROR
  send     wsrx=? -> WSRX:WLAN Static RX,wsrx      (0,1)(1-14)                                       rx(),OK
  send     widl=? -> WIDL:WLAN Idle mode (stopping TX),widl                                                        idle(),OK
  send     wlcg=1 -> WLCG:0x0,0x0,0x0,0x0,0x0,0x0,0x0,OK
  send     wtxg=1 -> WTXG: ,OK
  phone    shell 2 -> 0 wlanftmtest -A -c 1 -r 3 -p 4 -i 200 -l 1000 -w 0 -g 25 -o 0 -G 1\n0 wlanftmtest -P 100

it takes no value
  send     widl=1 -> widl                                                        idle(),SYNTAX
