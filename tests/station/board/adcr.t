#: Reads a channel of the board's converters: a voltage or a temperature.
#: adcr=CHANNEL[,FORMAT] | the value, hexadecimal; a negative one as 32 bits. FORMAT 0: the converter's own code. 1,
#:   also when left out: mV; of a temperature channel its value / 1000. 2: the scaled value of a temperature channel,
#:   in degrees, cut towards 0; a voltage channel has none, which is `SYNTAX`
#: adcr=? | the channels with their names
#: Channels: 3 band variant, 7 coin cell, 8 USB input, 9 charger input, 10 battery; 11 battery thermistor, 13 power
#: chip, 18 and 21 power amplifiers, 20 crystal, 36 main chip from outside, 37 board, 38 backlight; thermal zones of
#: the main chip 19, 24 to 27, 29 to 34, which are one number in formats 0 and 2. Other channels are `SYNTAX`, another
#: format and what can't be read `ERROR`, each behind an empty line.
# The converter channels of the power chip and the thermal zones.

a voltage is given in mV, as the converter's code, or not at all
  write    /sys/devices/qpnp-vadc-8/vbat_sns Result:3812345 Raw:36142\n
  # 3812345 uV / 1000 = 3812 = 0xEE4; 36142 = 0x8D2E
  #: The battery has 3812 mV, 0xEE4:
  send     adcr=10 -> ADCR:0xee4,OK
  send     adcr?10,1 -> ADCR:0xee4,OK
  send     adcr=10,0 -> ADCR:0x8d2e,OK
  send     adcr=10,2 -> ADCR:,SYNTAX
  # the coin cell's 3056 mV
  send     adcr=7 -> ADCR:0xbf0,OK

the battery's and the charger's inputs are what is there
  conf     charger none
  phone    battery 3500
  # 3500 = 0xDAC mV, a third of it at the pin: 0x6000 + 3500 / 3 / 1800 * 0x4000 = 35195 = 0x897B
  send     adcr=10 -> ADCR:0xdac,OK
  send     adcr=10,0 -> ADCR:0x897b,OK
  # 11 mV, and behind a wall charger 5093
  send     adcr=9 -> ADCR:0xb,OK
  phone    charger wall
  send     adcr=9 -> ADCR:0x13e5,OK
  # a simple charger sits on contacts of its own: 27 mV on the USB socket, until the phone feeds it
  phone    charger simple
  send     adcr=8 -> ADCR:0x1b,OK
  send     ebct=4,1 -> EBCT: ,OK
  # 5061
  send     adcr=8 -> ADCR:0x13c5,OK

a temperature has a scaled value of its own
  write    /sys/devices/qpnp-vadc-8/batt_therm_dflt Result:912345 Raw:32877\n
  write    /sys/devices/qpnp-vadc-8/batt_therm Result:-57 Raw:35001\n
  write    /sys/devices/qpnp-vadc-8/pcb_therm Result:2900 Raw:32260\n
  send     adcr=11 -> ADCR:0x390,OK
  # -57 tenths of a degree, cut towards 0: -5
  #: A temperature below zero, -5:
  send     adcr=11,2 -> ADCR:0xfffffffb,OK
  send     adcr=37,2 -> ADCR:0xb54,OK

a thermal zone is one number, whatever the format
  write    /sys/class/thermal/thermal_zone0/temp 1035\n
  send     adcr=19,0 | adcr=19,2 -> ADCR:0x40b,OK
  send     adcr=19 -> ADCR:0x1,OK

the RF identity gets its supply before it is read
  # 1790000 uV / 1000 = 1790
  send     adcr=3 -> ADCR:0x6fe,OK
  phone    gpio 544 -> 1

channels that don't exist are syntax errors, a format that doesn't is an error, and the help
  send     adcr=2 | adcr=39 -> ADCR:,SYNTAX
  send     adcr=10,3 -> ADCR:,ERROR
  send     adcr -> ADCR: ,SYNTAX
  send     adcr=? -> ADCR:Read adc channels ,ADCR:0x3 - Band variant / RF-id,ADCR:0x7 - Coin cell battery voltage,
  +        ADCR:0x8 - USB input voltage,ADCR:0x9 - Charger input voltage,ADCR:0xa - Battery voltage,
  +        ADCR:0xb - Battery thermistor,ADCR:0xd - PM8941 die thermistor,ADCR:0x12 - PA thermistor 1,
  +        ADCR:0x13 - MSM internal thermistor0,ADCR:0x14 - XO thermistor,ADCR:0x15 - PA thermistor 0,
  +        ADCR:0x18 - MSM internal thermistor1,ADCR:0x19 - MSM internal thermistor2,
  +        ADCR:0x1a - MSM internal thermistor3,ADCR:0x1b - MSM internal thermistor4,
  +        ADCR:0x1d - MSM internal thermistor5,ADCR:0x1e - MSM internal thermistor6,
  +        ADCR:0x1f - MSM internal thermistor7,ADCR:0x20 - MSM internal thermistor8,
  +        ADCR:0x21 - MSM internal thermistor9,ADCR:0x22 - MSM internal thermistor10,
  +        ADCR:0x24 - MSM external thermistor,ADCR:0x25 - PCB thermistor,ADCR:0x26 - Backlight thermistor,
  +        adcr      0x0-0xFF[,(0-3)]                                  ADCR(channel,format),OK

what can't be read is an error
  phone    fail open /sys/devices/qpnp-vadc-8/vbat_sns
  send     adcr=10 -> ADCR:,ERROR
  write    /sys/devices/qpnp-vadc-8/vbat_sns Result:3800000\n
  send     adcr=10 -> ADCR:,ERROR
  phone    fail opendir /sys/devices
  send     adcr=8 -> ADCR:,ERROR
