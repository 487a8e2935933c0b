#: Switches the second contactless chip's supplies and lines by hand.
#: nfpc=0,ON | the field supply
#: nfpc=1,ON | the chip's power; when switched on, the chip is given up to 110 ms to say that it is ready. What talks to
#:   the chip's native side refuses until this was done, whatever `nfpu` has done
#: nfpc=2,ON | its enable line
#: nfpc=3,ON | the line that puts the SIM on the chip
#: ON is 1 or 0. Another line or value is `ERROR`, as is everything on the PN65. Answers with one blank.

each line by its number
  send     nfsl=2 -> NFSL: ,OK
  send     nfpc=1,1 -> NFPC:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  send     nfpc=0,1 -> NFPC: ,OK
  phone    tamiro lines -> cen 1 pon 1 tvdd 1 hsel 0 speed 460800
  #: The chip is off, and on again:
  send     nfpc=1,0 -> NFPC: ,OK
  phone    tamiro lines -> cen 1 pon 0 tvdd 1 hsel 0 speed 460800
  send     nfpc=1,1 | nfpc=2,0 -> NFPC: ,OK
  phone    tamiro lines -> cen 0 pon 1 tvdd 1 hsel 0 speed 460800 | gpio 559 -> 1
  send     nfpc=3,1 -> NFPC: ,OK
  phone    gpio 559 -> 0
  send     nfpc=3,0 -> NFPC: ,OK
  phone    gpio 559 -> 1
  send     nfpc=0,0 -> NFPC: ,OK
  phone    tamiro lines -> cen 0 pon 1 tvdd 0 hsel 0 speed 460800

values that can't be, a device that fails, and the first chip
  send     nfpc=1 -> NFPC:Too few parameters,ERROR
  send     nfpc=1,1,1 -> NFPC:Too many parameters,ERROR
  send     nfpc=?1,1
  expect   NFPC:NFC power LDO/GPIO pin control,nfpc      (0-2),(0,1)                                       NFC power LDO/GPIO pin control,OK
  send     nfpu -> NFPU: ,OK
  send     nfpc=1,1 -> NFPC: ,ERROR
  send     nfpd -> NFPD: ,OK
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfpc=4,1 | nfpc=0,2 -> NFPC: ,ERROR
  phone    tamiro lines -> cen 1 pon 1 tvdd 0 hsel 0 speed 460800
  phone    fail ioctl /dev/tamiro_ctrl
  send     nfpc=0,1 -> NFPC: ,ERROR
