#: Starts a camera or stops the one that is active.
#: caml=1 | starts the main camera, caml=2 the sub camera; another that is active is stopped before. The first start
#:   of each loads the kernel module and starts the camera service
#: caml=0 | stops the active camera
#: Answers with the bare name; `ERROR` when there is no such camera, when the client's libraries are lacking or the
#: service refuses. Also selects the sizes that `cams` knows.

the first start loads the module and starts the service, and a camera that is active is left alone
  #:
  send     caml=1 -> CAML:,OK
  # Once for each camera's record: the second finds the module there
  phone    shell 3 -> 0 insmod /system/modules/zuna_camera_v4l2.ko\n1 insmod /system/modules/zuna_camera_v4l2.ko\n
  +        0 start qcamerasvr
  phone    camera 1 -> open frames 0 held 0 heaps 0
  phone    fail drns_open all
  send     caml=1 -> CAML:,OK
  phone    fail off
  send     caml=0 -> CAML:,OK
  phone    camera 1 -> closed frames 0 held 0 heaps 0
  send     caml=0 -> CAML:,OK

a switch stops the one camera and starts the other
  phone    speed 20
  send     caml=1 -> CAML:,OK
  send     camv=1,0 -> CAMV:,OK
  send     caml=2 -> CAML:,OK
  phone    camera 2 -> open frames 0 held 0 heaps 0
  send     caml=3 -> CAML:,ERROR
  send     caml=0 -> CAML:,OK

a switch whose second half fails leaves a camera that can be stopped and started again
  strange  any
  send     caml=1 -> CAML:,OK
  phone    fail drns_open 0x2 1
  send     caml=2 -> CAML:,ERROR
  send     camv=1,0 -> CAMV:,ERROR
  send     crom -> CROM:,ERROR
  send     caml=0 | caml=1 -> CAML:,OK

a camera that won't close stays the active one
  send     caml=1 -> CAML:,OK
  phone    fail drns_close 0x0 1
  send     caml=0 -> CAML:,ERROR
  phone    camera 1 -> open frames 0 held 0 heaps 0
  send     caml=0 -> CAML:,OK

a library that is lacking makes the start fail and nothing else
  conf     without libdrns_client.so
  strange  any
  send     lcdl=1 -> LCDL: ,OK
  send     caml=1 -> CAML:,ERROR
  send     camv=1,0 -> CAMV:,ERROR
  send     cams=2,0 -> CAMS:,ERROR

without the library that the others need to be there nothing is loaded
  conf     without liboemcamera.so
  send     caml=1 -> CAML:,ERROR

without its kernel module the service doesn't answer
  conf     without /system/modules/zuna_camera_v4l2.ko
  send     caml=1 -> CAML:,ERROR

only one value, and only to set
  send     caml | caml?1 -> SYNTAX
  send     caml=1,2 -> caml      (0-2)                                             load/unload,SYNTAX
  send     caml=?1 -> caml      (0-2)                                             load/unload,SYNTAX
