#: Reads the battery, and estimates its capacity from voltage and current.
#: batc=1 | the voltage in mV
#: batc=2 | the current in mA, negative while the battery is discharged
#: batc=3[,VOLTAGE[,CURRENT]] | the capacity in percent, the voltage in mV and the current in mA that it is estimated
#:   from. VOLTAGE and CURRENT take the place of what is measured, 0 doesn't; here a positive CURRENT is a discharge.
#:   No estimate, while it is charged for instance, is `ERROR`
#: batc=4 | the battery's type, 0 unknown; 1 on this phone
#: batc=5 | the temperature in degrees and the thermistor's voltage in mV
#: batc=6[,ALGORITHM[,MODEL[,RESISTANCE]]] | how the capacity is estimated: ALGORITHM 1 or 2, MODEL 1 to 3 of the
#:   first and 1 or 2 of the second, RESISTANCE of the battery in milliohm; a 0 keeps what was. Answers with one blank
#: What can't be read is `ERROR` behind one blank; another function is `SYNTAX`.

voltage, current, capacity, type and temperature of a healthy phone
  phone    battery 3801 -212
  #:
  send     batc=1 -> BATC:3801,OK
  send     batc=2 -> BATC:-212,OK
  # 3801 + 212 * 0.135 = 3829 mV, between 3847 (50) and 3825 (45): 45 + 4 * 5 / 22 = 45
  #:
  send     batc=3 -> BATC:45,3801,-212,OK
  send     batc=4 -> BATC:1,OK
  # 28.4 degrees: a thermistor of 100 kilohm and B 4250 has 100 * e^(4250 * (1/301.55 - 1/298.15)) = 85.15 of them,
  # below 100 kilohm at 1800 mV: 1800 * 85.15 / 185.15 = 828 mV
  send     batc?5 -> BATC:28,828,OK

the capacity of a voltage and a current that are given, the current as a discharge
  phone    battery 3801 -212
  # 3900 + 500 * 0.135 = 3967 mV, which is 65 percent
  send     batc=3,3900,500 -> BATC:65,3900,500,OK
  # the measured current: 3900 + 28 = 3928 mV, between 3929 (60) and 3880 (55): 55 + 48 * 5 / 49 = 59
  send     batc=3,3900 -> BATC:59,3900,-212,OK
  # the measured voltage: 3801 + 67 = 3868 mV, between 3880 (55) and 3847 (50): 50 + 21 * 5 / 33 = 53
  send     batc=3,0,500 -> BATC:53,3801,500,OK
  send     batc=3,4400,1,9 -> BATC:100,4400,1,OK
  # given as a charge: no estimate
  send     batc=3,3900,-500 -> BATC: ,ERROR
  # nor when there is none
  phone    battery 3801 0
  send     batc=3 -> BATC: ,ERROR

algorithm, model and resistance are set, and a value of 0 keeps the old one
  phone    battery 3800 -200
  # algorithm 2 takes a current of any sign. 3800 + 27 = 3827 mV, between 3830 (56) and 3813 (53): 53 + 14 * 3 / 17
  send     batc=6,2 -> BATC: ,OK
  send     batc=3 -> BATC:55,3800,-200,OK
  # 3800 - 27 = 3773 mV, between 3791 (46) and 3771 (33): 33 + 2 * 13 / 20
  phone    battery 3800 200
  send     batc=3 -> BATC:34,3800,200,OK
  phone    battery 3800 -200
  # back to algorithm 1 with model 1: between 3832 (54) and 3806 (46): 46 + 21 * 8 / 26
  send     batc=6,1,1 -> BATC: ,OK
  send     batc=3 -> BATC:52,3800,-200,OK
  # a resistance of 500 milliohm: 3900 mV, between 3920 (71) and 3873 (63): 63 + 27 * 8 / 47
  send     batc=6,0,0,500 -> BATC: ,OK
  send     batc=3 -> BATC:67,3800,-200,OK
  send     batc=6,0,4 -> BATC: ,OK
  send     batc=3 -> BATC: ,ERROR

a battery that isn't there is an error
  conf     without /sys/class/power_supply/battery/current_now
  conf     without /sys/class/power_supply/battery/type
  conf     without /sys/class/power_supply/battery/temp
  strange  any
  send     batc=2 | batc=3 -> BATC: ,ERROR

attributes that somebody has written stay so, with or without a number
  write    /sys/class/power_supply/battery/voltage_now 0x3B4A5E\n
  write    /sys/class/power_supply/battery/temp -105\n
  # 0x3B4A5E uV
  send     batc=1 -> BATC:3885,OK
  send     batc=5 -> BATC:-10,828,OK
  write    /sys/class/power_supply/battery/voltage_now no number\n
  send     batc=1 -> BATC:0,OK

one to four values, and a function from 1 to 6, and the help
  send     batc | batc=7 -> SYNTAX
  send     batc=? -> BATC:Battery control,BATC:BATC=1              - Read battery voltage (mV),
  +        BATC:BATC=2              - Read battery current (mA),
  +        BATC:BATC=3              - Read battery capacity, voltage & current (%,mV,mA),
  +        BATC:BATC=4              - Read battery type, (0=Unkown, 1 2),
  +        BATC:BATC=5              - Read battery temperature (C),
  +        BATC:BATC=6              - Set/get config (algorithm, model, ires),
  +        batc      (1-6)                                             batc(function),OK
