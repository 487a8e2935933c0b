#: Looks for WLAN networks and tells the address of the first.
#: wlscan | needs `wlpu=1`; what is wrong is said in words, with `ERROR`
#: A transmission is stopped first.

as a station the second word of what the tool prints is the answer
  send     wlpu=1 -> WLPU: ,OK
  #:
  send     wlscan -> WLSCAN:a0:f3:c1:2b:7d:18,OK
  phone    shell 1 -> 0 iw wlan0 scan
  phone    tool iw wlan0 \\n\\tone\\n\\n two\\n three
  send     wlscan? -> WLSCAN:two,OK

fewer than two words, one that is too long, and a tool that fails
  send     wlpu=1 -> WLPU: ,OK
  phone    tool iw wlan0 BSS\\n
  send     wlscan -> WLSCAN:Other error,ERROR
  phone    tool iw wlan0 none
  send     wlscan -> WLSCAN:Other error,ERROR
  phone    tool iw wlan0 BSS \*128{x}
  send     wlscan -> WLSCAN:Other error,ERROR
  phone    tool iw wlan0 \*300{BSS }\*127{x} y
  send     wlscan -> WLSCAN:BSS,OK
  phone    tool off | fail popen iw
  send     wlscan -> WLSCAN:Other error,ERROR
  phone    fail pclose
  send     wlscan -> WLSCAN:Other error,ERROR
  send     wlscan -> WLSCAN:a0:f3:c1:2b:7d:18,OK

in test mode there is no interface, and without power nothing at all
  send     wlscan -> WLSCAN:WLAN not started,ERROR
  send     wlpu -> WLPU: ,OK
  send     wlscan -> WLSCAN:Other error,ERROR
  phone    shell 1 -> 1 iw wlan0 scan

a transmission is stopped first; one that can't be stopped says so
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  phone    fail wlanftmtest -s
  send     wlscan -> WLSCAN:TX not OK,ERROR
  send     wlscan -> WLSCAN:Other error,ERROR
  phone    shell 2 -> 0 wlanftmtest -s\n1 iw wlan0 scan

it takes no value, and has a help
  send     wlscan=1 -> wlscan                                                      scan(),SYNTAX
  send     wlscan=? -> WLSCAN:Retrieves WLANs,wlscan                                                      scan(),OK
