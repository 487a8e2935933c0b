#: Switches the vibration motor.
#: vibc=1 | on, at 3000 mV
#: vibc=1,MOTOR[,LEVEL] | on, at LEVEL mV, of which four characters count; -1 is 3000 mV. The phone has one motor,
#:   whatever MOTOR says
#: vibc=0 | off
#: Answers with one blank; a motor that can't be switched is told in words, with `ERROR`. Another form is `SYNTAX`
#: without a line.

on at 3000 mV, at a level, and off
  file     /sys/hvt/hvt-vib/vib -> 0\n
  send     vibc=1 -> VIBC: ,OK
  file     /sys/hvt/hvt-vib/vib -> 3000
  #:
  send     vibc=0 -> VIBC: ,OK
  file     /sys/hvt/hvt-vib/vib -> 0
  send     vibc=1,1 -> VIBC: ,OK
  file     /sys/hvt/hvt-vib/vib -> 3000
  #:
  send     vibc=1,2,2500 -> VIBC: ,OK
  file     /sys/hvt/hvt-vib/vib -> 2500
  send     vibc=1,1,-1 -> VIBC: ,OK
  file     /sys/hvt/hvt-vib/vib -> 3000
  # four characters
  send     vibc=1,1,-6320 -> VIBC: ,OK
  file     /sys/hvt/hvt-vib/vib -> -632
  send     vibc=1,1,0 -> VIBC: ,OK
  file     /sys/hvt/hvt-vib/vib -> 0

the product can have another voltage
  conf     setting vibrator_generic voltage 2800
  send     vibc=1 -> VIBC: ,OK
  file     /sys/hvt/hvt-vib/vib -> 2800
  send     vibc=1,1,-1 -> VIBC: ,OK
  file     /sys/hvt/hvt-vib/vib -> 2800

a motor that can't be switched is told by the form of the line
  conf     without /sys/hvt/hvt-vib/vib
  strange  any
  send     vibc=0 -> VIBC:Turn off vibrator error,ERROR
  send     vibc=1 -> VIBC:Turn on vibrator error,ERROR
  send     vibc=1,258 -> VIBC:Start singel vibrator number 2 error,ERROR
  send     vibc=1,2,-300 -> VIBC:Start singel vibrator number 2 with level -300 error,ERROR

a short write is no success
  phone    fail write /sys/hvt/hvt-vib/vib short
  send     vibc=1,2,2500 -> VIBC:Start singel vibrator number 2 with level 2500 error,ERROR
  phone    fail write /sys/hvt/hvt-vib/vib
  send     vibc=0 -> VIBC:Turn off vibrator error,ERROR

lines that are none, and the help
  send     vibc | vibc=2 | vibc=0,1 | vibc=1,1,1,1 -> SYNTAX
  send     vibc? -> VIBC:Vibrator Test,OK
  send     vibc=? -> VIBC:Vibrator Test,vibc      (0-1)[(1-2)[,(-6320-6320)]]                       vibc(),OK
