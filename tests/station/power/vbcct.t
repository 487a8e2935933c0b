#: Switches charging over the USB socket, with limits for the battery's and the input's current.
#: vbcct=1[,BATTERY[,INPUT]] | charging on. BATTERY 200 to 3000 mA in steps of 50, 1000 when left out or 0; INPUT 100,
#:   150 or 200 to 2500 mA in steps of 100, 1500 when left out or 0. A current that is no step is `ERROR`, and
#:   charging is off then
#: vbcct=0 | charging off
#: vbcct=2 | reads the charger's registers, for the driver's own log
#: vbcct=? | the steps that the charger has
#: Answers with one blank; another action is `SYNTAX`.

currents are set with the charger
  #:
  send     vbcct=1,1000,1500 -> VBCCT: ,OK
  # code 20, index 15
  phone    spmi 1049 -> 80 | spmi 1044 -> 14 | spmi 1344 -> 0F | spmi 1444 -> 0F
  # code 60, index 25
  send     vbcct=1,3000,2500 -> VBCCT: ,OK
  phone    spmi 1044 -> 3C | spmi 1444 -> 19
  send     vbcct=0 -> VBCCT: ,OK
  phone    spmi 1049 -> 01
  # 1000 mA and 1500 mA
  send     vbcct=1 -> VBCCT: ,OK
  phone    spmi 1044 -> 14 | spmi 1344 -> 0F

currents that aren't steps are refused, and the charger goes off again
  #: No step of 50 mA:
  send     vbcct=1,1025 -> VBCCT: ,ERROR
  phone    spmi 1049 -> 01
  # the input limit was written, the battery's not
  phone    spmi 1344 -> 0F | spmi 1044 -> 06
  send     vbcct=1,1000,550 -> VBCCT: ,ERROR

the charger really charges, as much as the limits and the feed allow
  conf     charger wall
  conf     battery 60%
  phone    clock hold | battery auto
  send     batc=2 -> BATC:-600,OK
  send     vbcct=1,500 -> VBCCT: ,OK
  send     batc=2 -> BATC:500,OK
  # nine minutes of 500 mA into 2380 mAh are 3.15 percent
  phone    clock +540000 | battery auto
  file     /sys/class/power_supply/battery/capacity -> 63\n

a bus that fails is an error, and the charger goes off again
  phone    fail spmi 01344 1
  send     vbcct=1 -> VBCCT: ,ERROR
  phone    spmi 1049 -> 01
  phone    fail spmi 01049 1
  send     vbcct=0 -> VBCCT: ,ERROR

the dump reads the charger's nine registers, whatever comes of it
  phone    fail spmi 01044 | fail spmi 01049 | fail spmi 01308 | fail spmi 01344 | fail spmi 01444
  phone    fail spmi 18345 | fail spmi 18346 | fail spmi 01348 | fail spmi 1A046
  send     vbcct=2 -> VBCCT: ,OK
  phone    fail off -> 0 faults were never reached

one to three values, and an action up to 2, and the help
  send     vbcct | vbcct=3 -> VBCCT: ,SYNTAX
  send     vbcct=?
  read     VBCCT:VBUS Charging Control Test command \n,VBCCT:VBCCT=0 - Turn off charging\n,
  +        VBCCT:VBCCT=1,[<current_bat>,[<current_input>]] - Turn on charging\n,
  +        VBCCT:Supported current_bat (0,50,100,150,200,250,300,350,400,450,500,550,600,650,700,750,800,850,900,950,
  +        1000,1050,1100,1150,1200,1250,1300,1350,1400,1450,1500,1550,1600,1650,1700,1750,1800,1850,1900,1950,
  +        2000,2050,2100,2150,2200,2250,2300,2350,2400,2450,2500,2550,2600,2650,2700,2750,2800,2850,2900,2950)\n,
  +        VBCCT:Supported current_input (100,150,200,300,400,500,600,700,800,900,1000,1100,1200,1300,1400,1500,
  +        1600,1700,1800,1900,2000,2100,2200,2300,2400,2500)\n,
  +        vbcct     (0-1, W, W)                                       vbcct(action[,current[,current]],OK\r\n
