#: Loads the picture processor's firmware and tells versions. This phone has no such part: always `ERROR`.
#: ispd=1[,FILE] | loads a firmware file; answers with the bare name
#: ispd=2 | the firmware's version in hexadecimal
#: ispd=3 | the processor's version in hexadecimal

this phone has none
  #:
  send     ispd=1 -> ISPD:,ERROR
  send     ispd=1,/data/firmware.bin -> ISPD:,ERROR
  send     ispd=2 | ispd=3 -> ERROR
  send     ispd=4 | ispd -> SYNTAX
  send     ispd?2 -> OK
