#: Sends bytes to the current contactless chip as they are, and shows what comes back.
#: nfcc=BYTES | up to 64 bytes in hexadecimal with a comma between them. For the PN65: control byte and payload, at most
#:   29 of them; the link fills in numbers, length and CRC, and what comes back is shown from the length byte on, as many
#:   bytes as that tells, so that the last byte of the CRC is missing. For the second chip: 0 and the command bytes of a
#:   native frame (at most 58), or 1 and the HCI bytes of an envelope (at most 29); what is around the answer isn't
#:   shown. `Data missing` when the answer is empty; one blank and `ERROR` when there is none
#: No byte at all is `Too few parameters`, in the forms with `?` too.

bytes go out behind their numbers and come back from the length on
  send     nfcc=82,2 -> NFCC:NFC is not yet powered up,ERROR
  send     nfpu -> NFPU: ,OK
  #: A register of the PN65, 9810: its value BC behind pipe and status.
  send     nfcc=80,82,3e,0,98,10 -> NFCC:0x06,0xa5,0x82,0x80,0xbc,0xfa,OK
  phone    pn65 recent 2 -> 08A4823E009810837B\n03C58EB4
  send     nfcc?80, 82, 3e, 0, 98, 10 -> NFCC:0x06,0xae,0x82,0x80,0xbc,0xef,OK

no byte is too few, in every form
  send     nfcc | nfcc? -> NFCC:Too few parameters,ERROR
  send     nfcc=? -> NFCC:Too few parameters,nfcc      (...)                                             NFC Send raw data,ERROR
  send     nfcc=?80 -> NFCC:NFC Send raw data,nfcc      (...)                                             NFC Send raw data,OK

29 bytes are sent and 30 are not
  send     nfpu -> NFPU: ,OK
  send     nfcc=80,81\*27{,1} -> NFCC:0x05,0xa5,0x81,0x80,0xff,OK
  send     nfcc=80,81\*28{,1} -> NFCC: ,ERROR

frames that are none are told as what they are
  phone    speed 50
  send     nfpu -> NFPU: ,OK
  # length 200 stands for 33: the length byte and 32 more are shown, FF behind what the chip said
  phone    pn65 8011 raw:C8A482 1
  send     nfcc=80,80,11 -> NFCC:0x21,0xa4,0x82\*30{,0xff},OK
  phone    pn65 8011 raw:00 1
  send     nfcc=80,80,11 -> NFCC:Data missing,ERROR
  # control bytes of U frames: neither numbers nor an answer to wait for
  phone    pn65 8011 raw:01E6 1
  send     nfcc=80,80,11 -> NFCC:0x01,OK
  phone    pn65 8011 raw:02E611 1
  send     nfcc=80,80,11 -> NFCC:0x02,0xe6,OK
  phone    pn65 8011 silent 1
  send     nfcc=80,80,11 -> NFCC: ,ERROR

an acknowledgement comes before the answer, an old frame before the due one
  send     nfpu -> NFPU: ,OK
  phone    pn65 8011 ack+8081 1
  send     nfcc=80,80,11 -> NFCC:0x05,0xa5,0x80,0x81,0xae,OK
  phone    pn65 8011 old:8082+8083 1
  send     nfcc=80,80,11 -> NFCC:0x05,0xae,0x80,0x83,0x1a,OK
  phone    pn65 8011 old:8082+ack+old:8084+8085 1
  send     nfcc=80,80,11 -> NFCC:0x05,0xb7,0x80,0x85,0xa7,OK
  phone    pn65 recent 1 -> 03C79C97

a bus that fails takes the numbers back
  send     nfpu -> NFPU: ,OK
  phone    fail ioctl /dev/i2c-2
  send     nfcc=80,82,3e,0,98,10 -> NFCC: ,ERROR
  send     nfcc=80,82,3e,0,98,10 -> NFCC:0x06,0xa5,0x82,0x80,0xbc,0xfa,OK

the second chip: native frames and envelopes, answers that can't be
  send     nfsl=2 -> NFSL: ,OK
  send     nfpu -> NFPU: ,OK
  send     nfcc=0,f8,4,5 -> NFCC: ,ERROR
  send     nfpc=1,1 -> NFPC: ,OK
  send     nfcc=0,f8,4,5 -> NFCC:0xf9,0x04,0x00,0x5f,OK
  phone    tamiro recent 1 -> 00FA04F804051C6300
  send     nfcc=1,82,1 -> NFCC:0x82,0x80,0x4a,0x4b,OK
  send     nfcc=2,82,1 -> NFCC: ,ERROR
  # nothing inside is sent as well, and not answered
  send     nfcc=0 | nfcc=1 -> NFCC: ,ERROR
  phone    tamiro recent 2 -> 00FA01102100\n53000200FD
  send     nfcc=1,82,1 -> NFCC:0x82,0x80,0x4a,0x4b,OK
  send     nfcc=0,a5\*58{,1} | nfcc=1,a5\*29{,1} -> NFCC: ,ERROR
  phone    tamiro recent 1 -> 53000400820178
  phone    tamiro F804 raw:00FA00 1
  send     nfcc=0,f8,4,5 -> NFCC: ,ERROR
  phone    tamiro F804 raw:00FA3Cf9040055 1
  send     nfcc=0,f8,4,5 -> NFCC: ,ERROR
  phone    tamiro F804 raw:00FA 1
  send     nfcc=0,f8,4,5 -> NFCC: ,ERROR
  phone    tamiro F804 raw:00FA01000000 1
  send     nfcc=0,f8,4,5 -> NFCC:Data missing,ERROR
  phone    tamiro 8201 raw:530001 1
  send     nfcc=1,82,1 -> NFCC: ,ERROR
  phone    tamiro 8201 raw:53003C00828011 1
  send     nfcc=1,82,1 -> NFCC: ,ERROR
  phone    tamiro 82 ack 1
  send     nfcc=1,82,1 -> NFCC: ,ERROR
