#: Switches the USB host power, and asks for the charger type.
#: usbc=5 | the charger type as the USB driver detects it, a number; `ERROR` when it doesn't tell
#: usbc=6,0 | host power off
#: usbc=6,1[,TIME] | host power on when the cable goes, which is looked for each 100 ms, and off again after TIME in
#:   ms; without TIME after 500
#: usbc=0 to 4 | what this driver can't do: `ERROR`. `usbc=3` and `usbc=4` take a second value of 0 or 1
#: usbc=?1 | the help; without a value that is `SYNTAX`
#: Answers with one blank where nothing else is told; other values are `SYNTAX`.

a phone without the detection attribute has no charger type
  conf     without /sys/devices/platform/msm_hsusb/gadget/detect
  send     usbc=5 -> USBC: ,ERROR

a detection attribute that holds a number answers
  write    /sys/devices/platform/msm_hsusb/gadget/detect 2\n
  send     usbc=5 | usbc?5,9 -> USBC:2,OK
  write    /sys/devices/platform/msm_hsusb/gadget/detect nothing\n
  send     usbc=5 -> USBC: ,ERROR

the host power goes at once, or comes for a while when the cable goes
  phone    spmi 18346 91
  send     usbc=6,0 -> USBC: ,OK
  phone    spmi 18346 -> 11
  phone    fail spmi 01049 1
  send     usbc=6,0 -> USBC: ,ERROR
  # the cable is looked for every 100 ms, until it is gone
  phone    clock hold
  #:
  send     usbc?6,1,400 -> USBC: ,OK
  phone    clock +150 | usb off | clock +49 | spmi 1A046 -> 00
  phone    clock +1 | spmi 1A046 -> 80
  phone    clock +399 | spmi 1A046 -> 80
  phone    clock +1 | spmi 1A046 -> 00

what the driver can't do is an error
  send     usbc=0 | usbc=3,1,100 -> USBC: ,ERROR

what no row names is a syntax error, and so is no value
  send     usbc=7 | usbc=3,2 | usbc=6,2 | usbc -> USBC: ,SYNTAX

the test form wants values too
  send     usbc=?1 -> USBC:USB control command,usbc                                                        usbc(act,opt,timeout),OK
  send     usbc=? -> USBC: ,usbc                                                        usbc(act,opt,timeout),SYNTAX
