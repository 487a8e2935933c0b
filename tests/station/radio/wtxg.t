#: Sets the power of the WLAN transmission that runs.
#: wtxg[=PWR] | with up to three digits behind the point; one blank. Left out it is next to nothing
#: Without a transmission it says so and answers `SYNTAX`.

tenths of a thousandth go out; a value left out is 15, of which 1 is left
  send     wlpu
  expect   WLPU: ,OK
  send     wbtx
  expect   WBTX: ,OK
  #:
  send     wtxg=12.5
  expect   WTXG: ,OK
  phone    shell 1 -> 0 wlanftmtest -P 1250
  send     wtxg?-0.15
  expect   WTXG: ,OK
  phone    shell 1 -> 0 wlanftmtest -P -15
  send     wtxg
  expect   WTXG: ,OK
  phone    shell 1 -> 0 wlanftmtest -P 1
  phone    fail wlanftmtest -P
  send     wtxg=1
  expect   WTXG: ,ERROR
  # the transmission goes on
  send     widl
  expect   WIDL: ,OK
  phone    shell 1 -> 0 wlanftmtest -s

without a transmission, or without power, nothing is set
  send     wtxg=11
  expect   WTXG:The chip is not powered up yet!,SYNTAX
  send     wlpu
  expect   WLPU: ,OK
  send     wtxg=11
  expect   WTXG:Not in Tx!,WTXG: ,SYNTAX
  send     wtxg=?
  expect   WTXG:WLAN Tx Power setting,wtxg      (1.00-255.00)                                     wtxg(pwr),OK
  send     wtxg=1,2
  expect   wtxg      (1.00-255.00)                                     wtxg(pwr),SYNTAX
