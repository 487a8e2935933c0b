#: Sets the power of the WLAN transmission that runs.
#: wtxg[=PWR] | with up to three digits behind the point; one blank. Left out it is next to nothing
#: Without a transmission it says so and answers `SYNTAX`.

tenths of a thousandth go out; a value left out is 15, of which 1 is left
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  #:
  send     wtxg=12.5 -> WTXG: ,OK
  phone    shell 1 -> 0 wlanftmtest -P 1250
  send     wtxg?-0.15 -> WTXG: ,OK
  phone    shell 1 -> 0 wlanftmtest -P -15
  send     wtxg -> WTXG: ,OK
  phone    shell 1 -> 0 wlanftmtest -P 1
  phone    fail wlanftmtest -P
  send     wtxg=1 -> WTXG: ,ERROR
  # the transmission goes on
  send     widl -> WIDL: ,OK
  phone    shell 1 -> 0 wlanftmtest -s

without a transmission, or without power, nothing is set
  send     wtxg=11 -> WTXG:The chip is not powered up yet!,SYNTAX
  send     wlpu -> WLPU: ,OK
  send     wtxg=11 -> WTXG:Not in Tx!,WTXG: ,SYNTAX
  send     wtxg=? -> WTXG:WLAN Tx Power setting,wtxg      (1.00-255.00)                                     wtxg(pwr),OK
  send     wtxg=1,2 -> wtxg      (1.00-255.00)                                     wtxg(pwr),SYNTAX
