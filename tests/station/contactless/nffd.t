#: Loads firmware into the PN65, in the background, and tells how far it is.
#: nffd[=GAP] | starts a download that leaves GAP microseconds before each frame; 1, which is taken when it is left out,
#:   stands for 500. One that runs goes on, and no other one starts
#: nffd=0 | only tells the state
#: Both answer with two numbers: 0 idle, 1 running, 2 failed, 3 done; and the attempt, 1 to 5, or 6 behind five that failed.
#: A start may already tell how it failed. On the second chip, which has no download, both numbers are 7.
#: The firmware comes from a library that the phone's settings name, see [contactless](../contactless.md); without one the
#: answer is `2, 1`.

an image of a bench goes into the chip while the console answers
  conf     setting nfc_pn65_fw_dnld nfc_pn65_fw_dnld_path libpn65_fw.so
  # three sections at the places of the check values, the first with the preparation; CRC-32 twice, CRC-16/X-25
  write    /system/etc/firmware/pn65_fw.bin \x70\x6E\x36\x35\x00\x01\x00\x00\x00\x00\x00\x00\x02\x03\x00\x00\x01\x00\x00\x00\x03\x01\x00\x00\x00\x00\x80\x00\x09\x00\x00\x00\x01\x02\x03\x04\x05\xF4\x99\x0B\x47\x03\x00\x00\x00\x00\x88\x01\x00\x07\x00\x00\x00\x09\x08\x07\x36\xFD\x2D\xA6\x03\x00\x00\x00\x00\x82\x00\x00\x08\x00\x00\x00\x11\x11\x11\x11\x11\x11\x02\x83
  phone    clock hold
  send     nffd=0 -> NFFD:0, 0,OK
  #: A download starts, ...
  send     nffd=1 -> NFFD:1, 1,OK
  phone    idle | clock +400
  # ... and no other one beside it
  send     nffd=1 -> NFFD:1, 1,OK
  send     nfgr=? -> NFGR:NFC GPIO Read,nfgr      (1-2)                                             NFC GPIO Read,OK
  phone    clock +5000
  #: ... and a few seconds later it is done, at the first attempt:
  send     nffd=0 -> NFFD:3, 1,OK
  phone    pn65dl recent -> 010000\n0A000101\n08001301A1E0000EA5D0FEA5D0FDA5D0FCA50280A975\n08000B00825A0006A0A1E080A96C\n010000\n08000700800200020000\n0A000100\n010000\n08000E80000000090102030405F4990B47\n08000C018800000709080736FD2DA6\n08000D00820000081111111111110283\n0B0000\n010000
  phone    gpio 558 -> 1 | pn65dl mem 800000 -> 0102030405F4990B47FFFFFFFFFFFFFF
  phone    pn65dl mem 825A -> A0A1E080A96CFFFFFFFFFFFFFFFFFFFF
  phone    pn65dl mem 8002 -> 0000FFFFFFFFFFFFFFFFFFFFFFFFFFFF

the image that comes with the library, twice; the second time without the preparation
  conf     setting nfc_pn65_fw_dnld nfc_pn65_fw_dnld_path libpn65_fw.so
  phone    clock hold
  send     nffd -> NFFD:1, 1,OK
  phone    idle | clock +9000
  send     nffd=0 -> NFFD:3, 1,OK
  phone    pn65dl mem 18800 -> 888F969DA4ABB2B9C0C7CED5DCE3EAF1
  send     nffd=1000 -> NFFD:1, 1,OK
  phone    idle | clock +9000
  send     nffd=0 -> NFFD:3, 1,OK
  phone    clock run
  send     nfpu -> NFPU: ,OK

a chip that is silent is given up by the guard, five times 16.4 seconds
  conf     setting nfc_pn65_fw_dnld nfc_pn65_fw_dnld_path libpn65_fw.so
  phone    pn65dl 0A silent | clock hold
  send     nffd -> NFFD:1, 1,OK
  phone    idle | clock +16000
  send     nffd=0 -> NFFD:1, 1,OK
  phone    idle | clock +1500
  send     nffd=0 -> NFFD:1, 2,OK
  phone    clock +80000
  send     nffd=0 -> NFFD:2, 6,OK

a line that doesn't move ends it at once
  conf     setting nfc_pn65_fw_dnld nfc_pn65_fw_dnld_path libpn65_fw.so
  phone    fail write /dev/gpio558 | clock hold
  send     nffd -> NFFD:1, 1,OK
  phone    idle | clock +1000
  send     nffd=0 -> NFFD:2, 1,OK

the second chip has no download, and the help is the first one's
  send     nfsl=2 -> NFSL: ,OK
  send     nffd=0 | nffd -> NFFD:7, 7,OK
  send     nffd=?
  expect   NFC_FW_DNLD:nffd = [write frame time gap](defauld 500us)\n ,nffd      (0-0xFFFF)                                        nffd = [write frame time gap](de,OK
