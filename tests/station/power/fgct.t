#: Reads and calibrates the fuel gauge, which on this phone is a part of the power management chip.
#: fgct=1 | the battery's voltage in mV, a blank before it
#: fgct=2 | its current in mA, negative while it is discharged
#: fgct=7 | calibrates the current converter; answers with one blank
#: fgct=7,1 | the same; answers `1` when it went well, else `0`, and `OK` in either case
#: fgct=3 to 6 | what a gauge of its own would do (load data, its registers, its capacity): `NOT FOUND` behind one
#:   blank
#: fgct? | the help, whatever the values
# fgct works the fuel gauge: this phone's power management chip, which has no gauge of its own.

voltage and current
  phone    battery 3801 -212
  #:
  send     fgct=1 -> FGCT: 3801,OK
  send     fgct=2 -> FGCT: -212,OK

the converter calibrates itself when its attribute is read, and gives 0 when that went well
  send     fgct=7 -> FGCT: ,OK
  send     fgct=7,1 -> FGCT:1,OK
  write    /sys/devices/qpnp-iadc-9/calib_ccadc 1\n
  send     fgct=7 -> FGCT: ,ERROR
  # as a byte this is 0
  write    /sys/devices/qpnp-iadc-9/calib_ccadc 256\n
  send     fgct=7,1 -> FGCT:1,OK

what a gauge of its own would do isn't found
  #:
  send     fgct=3,0 -> FGCT: ,NOT FOUND
  send     fgct=4,0,0x10,0x20 -> FGCT: ,NOT FOUND

other values are a syntax error, and the help
  send     fgct -> SYNTAX
  send     fgct=8 | fgct=1,0 -> FGCT: ,SYNTAX
  send     fgct=? -> FGCT:Fuelgauge test,FGCT:FGCT=1 - Read battery voltage,FGCT:FGCT=2 - Read battery current,
  +        FGCT:FGCT=3,<options>,<path> - Flash cal data and firmware,FGCT:FGCT=4,0,<reg>,<data> - Custom write,
  +        FGCT:FGCT=4,1,<reg> - Custom read,FGCT:FGCT=5 - Initialize fg component for battery capacity,
  +        FGCT:FGCT=6 - Read battery capacity from component,FGCT:FGCT=7 - Calibrate fuelgauge block,
  +        fgct      (0-4)[,(0-1)[,(0x0000-0xFFFF)]]                   fgct(),OK
