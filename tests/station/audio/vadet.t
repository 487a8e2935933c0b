#: Reads the plug detection.
#: vadet=1[,FORMAT] | the microphone contact of the plug, hexadecimal: FORMAT 0 as the converter has it (0 to 0xfff), 1 in mV
#: vadet=2 | the kind of plug when it is a headset (1), else 0
#: A value that can't be read is an empty line and `ERROR`.

the contact's resistance
  phone    jack headset
  # 1800 ohms below 2210: 4096 and 1800 mV, 0.4489 of each
  #:
  send     vadet=1 -> VADET:0x72f,OK
  #:
  send     vadet=1,1 -> VADET:0x328,OK
  # a value of -1 is one that was left out
  send     vadet=1,-1 -> VADET:0x72f,OK
  phone    jack loop
  send     vadet=1,1 -> VADET:0x50b,OK
  # a button is pressed
  phone    jack headset 0
  send     vadet=1,0 -> VADET:0x0,OK
  phone    jack none
  send     vadet=1 -> VADET:0xfff,OK
  send     vadet=1,1 -> VADET:0x708,OK

a headset's kind
  send     vadet=2 -> VADET:0x0,OK
  phone    jack headset
  send     vadet=2 -> VADET:0x1,OK
  phone    jack headphones
  send     vadet=2 -> VADET:0x0,OK

what can't be read
  phone    fail read /sys/kernel/debug/wcd9xxx_plug_detectraw
  send     vadet=1 -> VADET:,ERROR
  phone    fail open /sys/kernel/debug/wcd9xxx_plug_detect
  send     vadet=2 | vadet=1,2 | vadet=3 | vadet=0 -> VADET:,ERROR

how it is asked for
  send     vadet | vadet=1,0,0 -> VADET: ,SYNTAX
  send     vadet?1 -> VADET:0xfff,OK
  send     vadet=? -> VADET:Read MICBIAS ADC ,vadet     0x1[,(0-1)]                                       VADET(function,format),OK
