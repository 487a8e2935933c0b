#: Reads what the RF band variant of this phone follows from, and stores the variant if none is stored yet.
#: rfbv | `PIN, MV`: 1 if the variant's pin is active, else 0, and the voltage of the RF identity in mV. Pin and
#:   voltage give the variant, a text in the persistent unit 0x800009F7, which is written once and then stays. A voltage that
#:   can't be read, or a variant that can't be stored, is `ERROR` behind an empty line
# The RF band variant: found from a pin and a voltage, stored once.

the variant is stored at the first start
  phone    unit 800009F7 -> 4C313233343537385F323057313234353800
  #:
  send     rfbv -> RFBV:0, 1790,OK

a variant that is stored stays, whatever is measured
  phone    idle
  write    /sys/devices/qpnp-vadc-8/rf_id Result:1500000 Raw:38229\n
  send     rfbv? -> RFBV:0, 1500,OK
  phone    unit 800009F7 -> 4C313233343537385F323057313234353800
  restart
  phone    unit 800009F7 -> 4C313233343537385F323057313234353800

a query that fails is told, and the variant that is stored stays
  phone    unit 800009F7 5800 | fail auxnvq_get_unit_size
  send     rfbv -> RFBV:,ERROR
  phone    unit 800009F7 -> 5800
  send     rfbv -> RFBV:0, 1790,OK
  phone    unit 800009F7 -> 5800
  # what is written without an answer to be had is told too
  phone    unit 800009F7 - | fail auxnvq_get_unit_size all
  send     rfbv -> RFBV:,ERROR

with the unit gone, the voltage gives the variant, and one between the variants none
  phone    unit 800009F7 -
  write    /sys/devices/qpnp-vadc-8/rf_id Result:1432000 Raw:37600\n
  send     rfbv -> RFBV:0, 1432,OK
  phone    unit 800009F7 -> none
  write    /sys/devices/qpnp-vadc-8/rf_id Result:1433000 Raw:37600\n
  send     rfbv -> RFBV:0, 1433,OK
  # "W12458"
  phone    unit 800009F7 -> 57313234353800

with the pin active other variants hold, of which most have an empty text
  phone    unit 800009F7 - | gpio 547 1
  write    /sys/devices/qpnp-vadc-8/rf_id Result:1700000 Raw:40049\n
  # 101700 falls in the row from 101697 to 101882; a stored empty text is a stored variant
  send     rfbv -> RFBV:1, 1700,OK
  phone    unit 800009F7 -> 00
  write    /sys/devices/qpnp-vadc-8/rf_id Result:1300000 Raw:36409\n
  send     rfbv -> RFBV:1, 1300,OK
  phone    unit 800009F7 -> 00
  phone    unit 800009F7 -
  send     rfbv -> RFBV:1, 1300,OK
  # "L47_17W12458"
  phone    unit 800009F7 -> 4C34375F313757313234353800

a voltage that can't be read or a unit that can't be written is an error
  phone    unit 800009F7 - | fail auxnvq_write_unit
  send     rfbv -> RFBV:,ERROR
  phone    unit 800009F7 -> none
  phone    fail open /sys/devices/qpnp-vadc-8/rf_id
  send     rfbv -> RFBV:,ERROR

a value is a syntax error of the line, and the help is one line
  send     rfbv=1 -> rfbv                                                        rfbv,SYNTAX
  send     rfbv=? -> RFBV:Read RF ID,rfbv                                                        rfbv,OK
