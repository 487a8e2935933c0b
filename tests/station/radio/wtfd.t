#: Downloads the WLAN firmware, which this phone's radio has once it is up.
#: wtfd | one blank; a transmission is stopped first

it is there once the radio is up
  #:
  send     wtfd -> WTFD:The chip is not powered up yet,ERROR
  send     wlpu -> WLPU: ,OK
  send     wtfd | wtfd? -> WTFD: ,OK
  phone    shell 1 -> 0 wlanftmtest -e

a transmission is stopped first; one that can't be stopped is an error
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  phone    fail wlanftmtest -s
  send     wtfd -> WTFD: ,ERROR
  send     wtfd -> WTFD: ,OK
  phone    shell 1 -> 0 wlanftmtest -s

it takes no value, and has a help
  send     wtfd=1 -> wtfd                                                        fwdl(),SYNTAX
  send     wtfd=? -> WTFD:WLAN firmware download,wtfd                                                        fwdl(),OK
