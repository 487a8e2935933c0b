#: Changes the speed of the second contactless chip, which wants `nfpc=1,1` before.
#: nfcb=0, nfcb=1 | 460800, 115200. The phone's own end is at 460800 behind it in any case, so that behind `nfcb=1` the
#:   chip hears nothing until `nfcb=0`. Answers with one blank; another number is `ERROR`, as all are on the PN65

a chip at another speed is deaf until it is called back
  send     nfcb=1 -> NFCB:NFC is not yet powered up,ERROR
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfcb=1 -> NFCB: ,ERROR
  send     nfpc=1,1 -> NFPC: ,OK
  #:
  send     nfcb=1 -> NFCB: ,OK
  phone    tamiro lines -> cen 1 pon 1 tvdd 0 hsel 0 speed 115200
  # challenge with the code of 115200, then the speed read and committed
  phone    tamiro recent 3 -> 00FA04F805142D4200\n00FA03F806A3FE00\n00FA03F807B3DF00
  send     nfrr=5 -> NFRR: ,ERROR
  send     nfcb=0 -> NFCB: ,OK
  phone    tamiro lines -> cen 1 pon 1 tvdd 0 hsel 0 speed 460800
  send     nfrr=5 -> NFRR:0x5F,OK

a speed that isn't read or committed, and one that isn't served
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfpc=1,1 -> NFPC: ,OK
  send     nfcb=2 -> NFCB: ,ERROR
  phone    tamiro F806 F90601 1
  send     nfcb=0 -> NFCB: ,ERROR
  phone    tamiro F807 F90701 1
  send     nfcb=1 -> NFCB: ,ERROR
  phone    tamiro lines -> cen 1 pon 1 tvdd 0 hsel 0 speed 115200
  send     nfcb=0 -> NFCB: ,OK
  send     nfcb -> NFCB:Too few parameters,ERROR
  send     nfcb=?0 -> NFCB:NFC Change baud rate,nfcb      (0-2)                                             NFC Change baud rate,OK

the first chip has one speed
  send     nfpu -> NFPU: ,OK
  send     nfcb=0 -> NFCB: ,ERROR
