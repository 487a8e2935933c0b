#: Loads firmware into the touch controller.
#: dtfd | from the file on the phone that fits the controller
#: dtfd="PATH" | from this file, its path up to 128 characters
#: Answers with one blank; `ERROR` when there is no such file or the controller refuses it.
# Firmware for the touch controller.

without a name the file that fits the controller is taken, and its driver finds it under the module's name
  #:
  send     dtfd -> DTFD: ,OK
  # the file in the phone begins with the version 0x00010204
  send     dtid -> DTID:0x00740460,0x00010204,OK
  file     /system/etc/firmware/touch_module_id_0x460.img -> \x04\x02\x01\x00max1187x

the file under the module's name may be the firmware itself, however it is written: it stays
  write    /system/etc/firmware/touch_module_id_0x460.img \x07\x00\x00\x00
  send     dtfd="/system/etc/firmware/touch_module_id_0x460.img" -> DTFD: ,OK
  send     dtid -> DTID:0x00740460,0x00000007,OK
  file     /system/etc/firmware/touch_module_id_0x460.img -> \x07\x00\x00\x00
  send     dtfd="system/etc/../etc/firmware//touch_module_id_0x460.img" -> DTFD: ,OK
  file     /system/etc/firmware/touch_module_id_0x460.img -> \x07\x00\x00\x00
  # a link of that name stays too
  send     dtfd | dtfd="/system/etc/firmware/touch_module_id_0x460.img" -> DTFD: ,OK
  send     dtid -> DTID:0x00740460,0x00010204,OK

a vendor whose driver wants one name
  conf     touch 2 0x75 0x0010 1
  write    /data/other.bin \x07\x00\x00\x00
  send     dtfd="/data/other.bin" -> DTFD: ,OK
  send     dtid -> DTID:0x00750010,0x00000007,OK
  file     /system/etc/firmware/touch_fw_hvt.bin -> \x07\x00\x00\x00

no file for the controller, none of that name, a name too long
  conf     touch 1 0x99 0x0460 1
  send     dtfd | dtfd="/system/etc/firmware/missing.bin" -> DTFD: ,ERROR
  # 129 characters
  send     dtfd="/3456789_123456789_123456789_123456789_123456789_123456789_123456789_123456789_123456789_123456789_123456789_123456789_123456789"
  expect   DTFD: ,ERROR

a firmware that the driver refuses, and the help
  write    /system/etc/firmware/half.bin \x01\x02
  send     dtfd="/system/etc/firmware/half.bin" -> DTFD: ,ERROR
  send     dtfd=? -> DTFD:Touch firmware download,dtfd                                                        dtfd(firmware),OK
