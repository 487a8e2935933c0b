#: Downloads the WLAN firmware, which this phone's radio has once it is up.
#: wtfd | one blank; a transmission is stopped first

it is there once the radio is up
  #:
  send     wtfd
  expect   WTFD:The chip is not powered up yet,ERROR
  send     wlpu
  expect   WLPU: ,OK
  send     wtfd
  expect   WTFD: ,OK
  send     wtfd?
  expect   WTFD: ,OK
  phone    shell 1 -> 0 wlanftmtest -e

a transmission is stopped first; one that can't be stopped is an error
  send     wlpu
  expect   WLPU: ,OK
  send     wbtx
  expect   WBTX: ,OK
  phone    fail wlanftmtest -s
  send     wtfd
  expect   WTFD: ,ERROR
  send     wtfd
  expect   WTFD: ,OK
  phone    shell 1 -> 0 wlanftmtest -s

it takes no value, and has a help
  send     wtfd=1
  expect   wtfd                                                        fwdl(),SYNTAX
  send     wtfd=?
  expect   WTFD:WLAN firmware download,wtfd                                                        fwdl(),OK
