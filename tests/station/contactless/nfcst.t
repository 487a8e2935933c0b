#: Tells whether a secure element answers on the single wire of the current contactless chip.
#: nfcst | 1 or 0; `ERROR` when the chip's own answer isn't to be had or is neither

both chips, with an element and without
  send     nfcst -> NFCST:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  #:
  send     nfcst -> NFCST:1,OK
  phone    swp off
  send     nfcst -> NFCST:0,OK
  # an acknowledgement is no answer
  phone    pn65 8221 raw:03E60000 1
  send     nfcst -> NFCST: ,ERROR
  send     nfpd -> NFPD: ,OK
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfcst -> NFCST:0,OK
  phone    swp on
  send     nfcst -> NFCST:1,OK
  phone    tamiro lines -> cen 1 pon 1 tvdd 0 hsel 0 speed 460800
  send     nfcst=? -> NFCST:NFC SE Connection test,nfcst                                                       NFC SE Connection test,OK

answers of the second chip that are neither
  conf     swp off
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfcst -> NFCST:0,OK
  phone    tamiro 8209 82090001100004 1
  send     nfcst -> NFCST: ,ERROR
  phone    tamiro 8209 8209000101 1
  send     nfcst -> NFCST: ,ERROR
  # the failed exchange left it on its other side
  phone    tamiro lines -> cen 1 pon 1 tvdd 0 hsel 1 speed 460800
  phone    tamiro 8209 820900011100 1
  send     nfcst -> NFCST: ,ERROR
  phone    tamiro lines -> cen 1 pon 1 tvdd 0 hsel 0 speed 460800
