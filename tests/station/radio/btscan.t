#: Looks for Bluetooth devices.
#: btscan[=COUNT] | the addresses of at most COUNT (1 to 7, 1 when left out) devices, separated by commas
#: Nobody near is `No devices` and `ERROR`; what else can be wrong is said in words. It takes as long as the inquiry, a
#: second and more.

an inquiry for as many as were asked for, and a reset behind it
  send     btscan -> BTSCAN:00:1B:DC:06:4F:2E,OK
  phone    shell 2 -> 0 hcitool inq --numrsp=1\n0 hciconfig hci0 reset | hci recent -> 01030C00
  #:
  send     btscan?7 -> BTSCAN:00:1B:DC:06:4F:2E,7C:6D:62:A8:13:90,OK
  phone    shell 2 -> 0 hcitool inq --numrsp=7\n0 hciconfig hci0 reset

the first word of each line but the heading counts, up to seven of them, whatever the tool prints
  phone    tool hcitool inq H1 H2\\n\\tA1\\tx\\n  A2 y\\n\\n\\t\\nA3
  send     btscan -> BTSCAN:A1,A2,A3,OK
  phone    tool hcitool inq head\\n\*9{\\t11:22:33:44:55:66 x\\n}
  send     btscan=2 -> BTSCAN:11:22:33:44:55:66\*6{,11:22:33:44:55:66},OK
  # longer than an address: none
  phone    tool hcitool inq head\\n\\t11:22:33:44:55:66:77\\n\\t11:22:33:44:55:66
  send     btscan=2 -> BTSCAN:11:22:33:44:55:66,OK
  phone    tool hcitool inq \*3000{x}
  send     btscan=2 -> BTSCAN:No devices,ERROR

nobody near, and nothing printed at all
  phone    tool hcitool inq Inquiring ...\\n
  send     btscan -> BTSCAN:No devices,ERROR
  phone    tool hcitool inq none
  send     btscan -> BTSCAN:No devices,ERROR
  phone    tool off
  send     btscan -> BTSCAN:00:1B:DC:06:4F:2E,OK

a tool that can't be run, a reset that fails and a controller that isn't up are other errors
  phone    fail popen hcitool
  send     btscan -> BTSCAN:Other error,ERROR
  phone    fail hciconfig hci0 reset
  send     btscan -> BTSCAN:Other error,ERROR
  phone    fail off -> 0 faults were never reached
  send     btscan -> BTSCAN:00:1B:DC:06:4F:2E,OK

as the first command on a phone without the driver
  conf     without /system/modules/hci_smd.ko
  send     btscan -> BTSCAN:Other error,ERROR

a count outside 1 to 7 touches nothing, in every form
  send     btscan=0 | btscan=8 -> BTSCAN:Parameter out of range (1-7),ERROR
  send     btscan=?8 -> BTSCAN:Parameter out of range (1-7),btscan    (1-7)                                             scan(),ERROR
  send     btscan=-1 -> BTSCAN:Parameter out of range (1-7),ERROR
  send     btscan=? -> BTSCAN:Scans for BT devices,btscan    (1-7)                                             scan(),OK
  send     btscan=1,2 -> btscan    (1-7)                                             scan(),SYNTAX
  phone    shell 1 -> 0 echo 1 > /dev/wcnss_wlan
