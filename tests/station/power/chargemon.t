# The charging monitor, which looks after the battery when a charger is attached and no USB host is. Its log is
# /system/chargemon.txt; the time in a line counts from where the monitor leaves idle. It ticks every 2 s, so that
# a step of 2000 ms of a held clock is one tick. Pinned values tell it what to do: 3860 mV and -100 mA, for
# instance, are 3860 + 13.5 = 3873 mV at rest (in its integers, as all below), between 3880 (55) and 3847 (50).

a USB host ends it at its first tick, and it leaves the charger alone
  conf     charger wall
  phone    clock hold | clock +60000
  file     /system/chargemon.txt -> [     0.000] -------- New session ---------\n
  +        [     0.000] Terminating charging monitor.\n
  phone    spmi 1049 -> 01

without a charger, or with a host that doesn't charge, it waits
  conf     usb off
  conf     charger none
  phone    clock hold | clock +2000 | charger usb | clock +10000 | charger none | clock +2000
  file     /system/chargemon.txt -> [     0.000] -------- New session ---------\n
  +        [     0.000] No charger connected.\n
  +        [     0.000] USB connected (no charging).\n
  +        [     0.000] No charger connected.\n
  phone    spmi 1049 -> 01
  file     /sys/class/leds/red/brightness -> 0\n

a wall charger charges a low battery, and pulled it is switched off and the phone goes off
  conf     usb off
  conf     charger none
  phone    clock hold | clock +2000
  # 3773 + 200 * 0.135 = 3800 mV, between 3807 (40) and 3793 (35): 35 + 7 * 5 / 14 = 37, of 2380 mAh 880 mAh
  phone    battery 3773 -200 | charger wall | clock +2000
  phone    spmi 1049 -> 80 | spmi 1044 -> 1E | spmi 1344 -> 0F
  file     /sys/class/leds/red/brightness   -> 255
  file     /sys/class/leds/green/brightness -> 0
  phone    battery 4020 1100
  # 880000 uAh + 2000 ms * 1100 mA / 3600 = 611 uAh; 60 percent are 1428 mAh; the missing 548 mAh take 1793 s
  phone    clock +2000
  file     /sys/class/leds/red/brightness -> 0
  phone    clock +2000
  file     /sys/class/leds/red/brightness -> 255
  phone    charger none
  # as if the phone couldn't go off, so that the log can be looked at
  phone    fail system reboot | clock +2000 | spmi 1049 -> 01
  # three times 611 uAh are 881833 uAh; the missing 547 mAh take 547 * 3600 / 1100 = 1790 s
  file     /system/chargemon.txt -> [     0.000] -------- New session ---------\n
  +        [     0.000] No charger connected.\n
  +        [     0.000] USB Wall charger connected.\n
  +        [     0.000] Charger connected.\n
  +        [     0.000] capacities read: 37%, 37%, 37%\n
  +        [     0.000] Starting capacity (37%, 880mAh).\n
  +        [     0.000] Starting charging at 1500mA\n
  +        [     2.000] 37%, 4020mV, 1100mA, 880mAh/1428mAh\n
  +        [     2.000] Estimated time left 0h:29m:53s\n
  +        [     4.000] 37%, 4020mV, 1100mA, 881mAh/1428mAh\n
  +        [     4.000] Estimated time left 0h:29m:50s\n
  +        [     6.000] 37%, 4020mV, 1100mA, 881mAh/1428mAh\n
  +        [     6.000] Estimated time left 0h:29m:50s\n
  +        [     6.000] Charger disconnected.\n
  +        [     6.000] Powering off.\n
  # it is told again what it knows, then again that it is gone
  phone    charger wall | clock run
  off

a charger that changes its type is a charger that is gone
  conf     usb off
  conf     charger none
  # 3917 + 27 = 3944 mV, between 3967 (65) and 3929 (60): 60 + 15 * 5 / 38 = 61, above the target, within the margin
  conf     battery 3917 -200
  phone    clock hold | clock +2000 | charger simple | clock +2000 | pixel 1000 1800 -> 00FF00
  phone    charger wall | fail system reboot | clock +2000
  file     /system/chargemon.txt -> [     0.000] -------- New session ---------\n
  +        [     0.000] No charger connected.\n
  +        [     0.000] Simple charger connected.\n
  +        [     0.000] Charger connected.\n
  +        [     0.000] Capacity (61) too high for charging.\n
  +        [     0.000] Entering done state\n
  +        [     2.000] 61%, 3917mV, -200mA\n
  +        [     2.000] Charger disconnected.\n
  +        [     2.000] Powering off.\n

a charger that doesn't take over is switched on three times more, then the panel turns red
  conf     usb off
  conf     charger none
  conf     battery 3773 -200
  phone    clock hold | clock +2000 | charger wall | clock +2000 | clock +4000
  write    /system/chargemon.txt (cut)\n
  # 880000 uAh are 36.97 percent of 2380 mAh
  phone    clock +4000
  file     /system/chargemon.txt -> (cut)\n
  +        [     6.000] 36%, 3773mV, -200mA, 880mAh/1428mAh\n
  +        [     6.000] Start charging retry 3\n
  +        [     8.000] 36%, 3773mV, -200mA, 880mAh/1428mAh\n
  +        [     8.000] Error state: Charging did not start.\n
  phone    spmi 1049 -> 01 | pixel 1000 1800 -> FF0000

too hot is an error
  conf     usb off
  conf     charger none
  conf     battery 3773 -200
  phone    clock hold | clock +2000 | charger wall | clock +2000
  write    /system/chargemon.txt (cut)\n
  phone    battery 4020 1100
  # 80 degrees are still good
  write    /sys/class/power_supply/battery/temp 809\n
  phone    clock +2000
  write    /sys/class/power_supply/battery/temp 810\n
  phone    clock +4000
  file     /system/chargemon.txt -> (cut)\n
  +        [     2.000] 37%, 4020mV, 1100mA, 880mAh/1428mAh\n
  +        [     2.000] Estimated time left 0h:29m:53s\n
  +        [     2.000] Error state: Battery temperature too high.\n
  +        [     6.000] 0%, 4020mV, 1100mA\n
  phone    spmi 1049 -> 01

a full battery is discharged until it fits, then done on green, and charged again when it has sunk
  conf     usb off
  conf     charger none
  # 3940 + 27 = 3967 mV: 65 percent
  conf     battery 3940 -200
  phone    clock hold | clock +2000 | charger wall | clock +2000
  file     /system/chargemon.txt -> [     0.000] -------- New session ---------\n
  +        [     0.000] No charger connected.\n
  +        [     0.000] USB Wall charger connected.\n
  +        [     0.000] Charger connected.\n
  +        [     0.000] Capacity (65) too high,need discharging.\n
  +        [     0.000] Entering discharge state\n
  phone    pixel 1000 1800 -> 000000
  # it looks after 122, 244 and 366 s, and no time without the cable powers it off
  phone    clock +366000
  # 3918 + 27 = 3945 mV: 60 + 16 * 5 / 38 = 62, within the margin
  phone    battery 3918 -200 | clock +118000
  write    /system/chargemon.txt (cut)\n
  # 120 s aren't above 120 s
  phone    clock +4000
  file     /system/chargemon.txt -> (cut)\n
  +        [   486.000] 62%, 3918mV, -200mA\n
  +        [   486.000] waiting for voltage and current stable.\n
  +        [   488.000] 62%, 3918mV, -200mA\n
  +        [   488.000] enough time have passed for stable voltage and current.\n
  +        [   488.000] Discharging done.\n
  +        [   488.000] Entering done state\n
  phone    pixel 1000 1800 -> 00FF00
  # 3882 + 27 = 3909 mV: 55 + 29 * 5 / 49 = 57, of 2380 mAh 1356
  phone    battery 3882 -200 | clock +118000
  write    /system/chargemon.txt (cut)\n
  phone    clock +2000
  file     /system/chargemon.txt -> (cut)\n
  +        [   608.000] 57%, 3882mV, -200mA\n
  +        [   608.000] check if capacity keeps higher than recharge_cap.\n
  +        [   608.000] capacities read: 57%, 57%, 57%\n
  +        [   608.000] Starting capacity (57%, 1356mAh).\n
  +        [   608.000] Starting charging at 1500mA\n
  phone    spmi 1049 -> 80
  file     /sys/class/leds/lcd-backlight/brightness -> 0

a reading that fails decides nothing: a full battery goes on discharging, and one that is done stays done
  conf     usb off
  conf     charger none
  conf     battery 3940 -200
  phone    clock hold | clock +2000 | charger wall | clock +122000
  phone    fail open /sys/class/power_supply/battery/voltage_now
  write    /system/chargemon.txt (cut)\n
  phone    clock +2000
  file     /system/chargemon.txt -> (cut)\n
  +        [   122.000] 0%, 0mV, 0mA\n
  +        [   122.000] enough time have passed for stable voltage and current.\n
  phone    fail off -> 0 faults were never reached
  phone    battery 3918 -200 | clock +122000 | pixel 1000 1800 -> 00FF00
  phone    clock +118000 | fail open /sys/class/power_supply/battery/voltage_now
  write    /system/chargemon.txt (cut)\n
  phone    clock +2000
  file     /system/chargemon.txt -> (cut)\n
  +        [   364.000] 0%, 0mV, 0mA\n
  +        [   364.000] check if capacity keeps higher than recharge_cap.\n
  phone    fail off -> 0 faults were never reached | pixel 1000 1800 -> 00FF00 | spmi 1049 -> 01

charging ends one percent below the target
  conf     usb off
  conf     charger none
  conf     battery 3892 -200
  phone    clock hold | clock +2000 | charger wall
  # 3892 + 27 = 3919 mV: 58 percent, 1380 mAh. 59 percent are 1404.2 mAh: 24.2 mAh at 10000 mA are 8712 ms, but the
  # charge is counted at the ticks: 1380000 + n * 2000 * 10000 / 3600 uAh, with n = 5 the first above
  phone    clock +2000 | battery 4200 10000 | clock +8000
  write    /system/chargemon.txt (cut)\n
  phone    fail spmi 01049 | clock +2000
  file     /system/chargemon.txt -> (cut)\n
  +        [    10.000] 59%, 4200mV, 10000mA, 1407mAh/1428mAh\n
  +        [    10.000] charge_set_mode failed.\n
  +        [    10.000] Entering discharge state\n
  phone    spmi 1049 -> 80

a log that can't be written is done without, and a temperature that can't be read is too hot
  conf     usb off
  conf     charger none
  conf     battery 3773 -200
  conf     without /sys/class/power_supply/battery/temp
  strange  any
  phone    clock hold | clock +2000 | fail open /system/chargemon.txt 5 | charger wall | clock +2000
  phone    spmi 1049 -> 80 | fail off -> 0 faults were never reached
  phone    clock +2000
  file     /system/chargemon.txt -> [     0.000] -------- New session ---------\n
  +        [     0.000] No charger connected.\n
  +        [     0.000] Error state: Battery temperature too high.\n
  phone    spmi 1049 -> 01

a phone without a battery is an error that says so
  conf     usb off
  conf     charger none
  conf     without /sys/class/power_supply/battery/type
  strange  any
  phone    clock hold | clock +2000 | charger wall | clock +4000
  file     /system/chargemon.txt -> [     0.000] -------- New session ---------\n
  +        [     0.000] No charger connected.\n
  +        [     0.000] USB Wall charger connected.\n
  +        [     0.000] Charger connected.\n
  +        [     0.000] Error state: No valid battery detected.\n
  +        [     2.000] 0%, 0mV, 0mA\n
  phone    pixel 1000 1800 -> FF0000

a charging phone isn't powered off for its time without the cable
  conf     usb off
  conf     charger none
  conf     battery 10%
  phone    clock hold | clock +2000 | charger wall | clock +420000 | idle | spmi 1049 -> 80
