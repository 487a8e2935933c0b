#: Runs a script for the Bluetooth chip, which this phone's doesn't take.
#: btse="PATH" | one blank and `ERROR` on this phone

a script is an error, whether it is there or not
  #:
  send     btse="/data/bt.bts" -> BTSE: ,ERROR
  send     btse?"x" -> BTSE: ,ERROR

without a text, or with one outside quotes, nothing is done
  send     btse -> BTSE: ,ERROR
  send     btse=/data/bt.bts -> btse      ("A-Z","a-z")                                     exec(path),SYNTAX
  send     btse=? -> BTSE:Bluetooth script execute,btse      ("A-Z","a-z")                                     exec(path),OK
  phone    shell 1 -> 0 echo 1 > /dev/wcnss_wlan
