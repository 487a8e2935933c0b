#: Reads or writes the Bluetooth address; this phone's can only be read.
#: rwbt=3 | the controller's address, `0x` and twelve digits
#: rwbt=0 | the address in the flash
#: rwbt=1,"ADDRESS" | writes it there: six pairs of hexadecimal digits, `0x` before them or not
#: rwbt=2 | the address in the flash goes to the controller
#: rwbt=4,"ADDRESS" | writes the controller's
#: All but 3 answer one blank and `ERROR` on this phone. There is no read form.

the address is read from the controller, in the order of its event
  #:
  send     rwbt=3 -> RWBT:0x5C8E2D907600,OK
  phone    hci recent -> 01030C00\n01091000
  # one byte too few
  phone    hci 010910 040E09010910000102030405 1
  send     rwbt=3 -> RWBT: ,ERROR
  phone    hci 010910 040E0A0109100C010203040506 1
  send     rwbt=3 -> RWBT: ,ERROR

writing it, and the copy in the flash, are errors, whatever the text
  send     rwbt | rwbt=0 | rwbt=1,"001122334455" | rwbt=2 -> RWBT: ,ERROR
  phone    shell 1 -> 0 echo 1 > /dev/wcnss_wlan
  send     rwbt=4,"0x0011223344FF" | rwbt=4,"00112233445" | rwbt=4,"0011223344GG" -> RWBT: ,ERROR
  send     rwbt=4,"" -> RWBT: ,ERROR

a count of values that doesn't go with the operation is an error, an unquoted text one of syntax
  send     rwbt=3,"001122334455" | rwbt=4 | rwbt=1, | rwbt=5 -> RWBT: ,ERROR
  send     rwbt=4,001122334455 -> rwbt      [(0-4)[(" ")]]                                    test rwbt,SYNTAX
  phone    hci recent -> none

it has no read form, and stands in every list
  send     rwbt?3 -> SYNTAX
  send     rwbt=? -> RWBT:Bluetooth read/write IEEE address.,rwbt      [(0-4)[(" ")]]                                    test rwbt,OK
  send     help="rwbt",1 -> rwbt      [(0-4)[(" ")]]                                    test rwbt,OK
