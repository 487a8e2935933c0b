#: Reads one of the phone's temperatures.
#: temp=CHANNEL,2 | in degrees, decimal, a blank before it
#: temp=CHANNEL[,FORMAT] | FORMAT 0, also when left out: the converter's own code. 1: mV or value / 1000 (`adcr`).
#:   Both hexadecimal, a blank before it
#: Channels: 0 and 1 power amplifiers, 2 main chip, 3 crystal, 4 battery, 5 main chip from outside, 6 board, 7
#: backlight, 16 to 25 more zones of the main chip, 30 power chip. Another channel is `SYNTAX`, another format and
#: what can't be read `ERROR`.
# Temperatures: the converter channels under numbers of their own. Without a format the raw code is given.

every number leads to its own channel
  send     temp=0,2 -> TEMP: 32,OK
  send     temp=1,2 -> TEMP: 31,OK
  send     temp=2,2 -> TEMP: 38,OK
  send     temp=3,2 -> TEMP: 30,OK
  # 284 tenths of a degree
  #: The battery has 28 degrees:
  send     temp=4,2 -> TEMP: 28,OK
  send     temp=5,2 -> TEMP: 36,OK
  send     temp=6,2 -> TEMP: 29,OK
  send     temp=7,2 -> TEMP: 27,OK
  send     temp=16,2 -> TEMP: 39,OK
  send     temp=17,2 -> TEMP: 41,OK
  send     temp=18,2 -> TEMP: 42,OK
  send     temp=19,2 -> TEMP: 43,OK
  send     temp=20,2 -> TEMP: 44,OK
  send     temp=21,2 -> TEMP: 45,OK
  send     temp=22,2 -> TEMP: 40,OK
  send     temp=23,2 -> TEMP: 37,OK
  send     temp=24,2 -> TEMP: 46,OK
  send     temp=25,2 -> TEMP: 47,OK

the die temperature comes in thousandths and is cut to degrees
  send     temp=30,2 -> TEMP: 33,OK
  write    /sys/devices/qpnp-vadc-8/die_temp Result:-10500 Raw:27000\n
  send     temp=30,2 -> TEMP: -10,OK

other formats are hexadecimal
  # 31764 = 0x7C14; 828 mV (see batc) = 0x33C
  send     temp=0 -> TEMP: 0x7c14,OK
  #: Its thermistor has 828 mV, 0x33C:
  send     temp=4,1 -> TEMP: 0x33c,OK

numbers without a channel are syntax errors, and the help
  send     temp=8 | temp=26,2 -> TEMP:,SYNTAX
  send     temp -> TEMP: ,SYNTAX
  send     temp=? -> TEMP:Read temperatures,temp      (0-30)[,(0-2)]                                    TEMP=<channel>,<format>,OK

what can't be read, or not in that format, is an error
  send     temp=0,3 -> TEMP:,ERROR
  phone    fail open /sys/devices/qpnp-vadc-8/pa_therm0
  send     temp=0,2 -> TEMP:,ERROR
