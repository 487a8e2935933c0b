#: Writes one of the kernel settings that make up the system modes.
#: syscfg=NUMBER,"TEXT" | NUMBER 0 to 36, as `syscfg=?` lists them; TEXT goes to its file as it is. Answers with one
#:   blank; a file that isn't there is `ERROR`, another number `SYNTAX`
#: syscfg=? | all settings, each `NUMBER PATH = TEXT` with its present text

a setting gets its text
  #:
  send     syscfg=0,"0" -> SYSCFG: ,OK
  file     /sys/devices/system/cpu/cpu0/online -> 0
  send     syscfg=36,"7 x" -> SYSCFG: ,OK
  file     /sys/module/lpm_resources/enable_low_power/vdd_mem -> 7 x

a number outside the list is a syntax error, and so is a missing text
  send     syscfg=37,"x" | syscfg=-1,"x" | syscfg | syscfg=0, -> SYSCFG: ,SYNTAX

a setting that fails or isn't there is an error
  phone    fail write /sys/devices/system/cpu/cpu0/online
  send     syscfg=0,"1" -> SYSCFG: ,ERROR
  phone    fail open /sys/devices/system/cpu/cpu0/online
  send     syscfg=0,"1" -> SYSCFG: ,ERROR

the help lists all settings with their texts, of which 200 characters count
  phone    idle
  write    /sys/module/pm_8x60/modes/cpu0/standalone_power_collapse/suspend_enabled \*20{abcde}\n\*26{fghij}
  send     syscfg=? -> SYSCFG:0 /sys/devices/system/cpu/cpu0/online = 1,
  +        SYSCFG:1 /sys/devices/system/cpu/cpu1/online = 1,
  +        SYSCFG:2 /sys/devices/system/cpu/cpu2/online = 1,
  +        SYSCFG:3 /sys/devices/system/cpu/cpu3/online = 1,
  +        SYSCFG:4 /sys/devices/system/cpu/cpu0/cpufreq/scaling_governor = ondemand,
  +        SYSCFG:5 /sys/devices/system/cpu/cpu1/cpufreq/scaling_governor = ondemand,
  +        SYSCFG:6 /sys/devices/system/cpu/cpu2/cpufreq/scaling_governor = ondemand,
  +        SYSCFG:7 /sys/devices/system/cpu/cpu3/cpufreq/scaling_governor = ondemand,
  +        SYSCFG:8 /sys/devices/system/cpu/cpufreq/ondemand/up_threshold = 90,
  +        SYSCFG:9 /sys/devices/system/cpu/cpufreq/ondemand/io_is_busy = 1,
  +        SYSCFG:10 /sys/devices/system/cpu/cpufreq/ondemand/sampling_down_factor = 4,
  +        SYSCFG:11 /sys/devices/system/cpu/cpufreq/ondemand/down_differential = 10,
  +        SYSCFG:12 /sys/devices/system/cpu/cpu0/cpufreq/scaling_max_freq = 960000,
  +        SYSCFG:13 /sys/devices/system/cpu/cpu1/cpufreq/scaling_max_freq = 960000,
  +        SYSCFG:14 /sys/devices/system/cpu/cpu2/cpufreq/scaling_max_freq = 960000,
  +        SYSCFG:15 /sys/devices/system/cpu/cpu3/cpufreq/scaling_max_freq = 960000,
  +        SYSCFG:16 /sys/devices/system/cpu/cpu0/cpufreq/scaling_min_freq = 300000,
  +        SYSCFG:17 /sys/devices/system/cpu/cpu1/cpufreq/scaling_min_freq = 300000,
  +        SYSCFG:18 /sys/devices/system/cpu/cpu2/cpufreq/scaling_min_freq = 300000,
  +        SYSCFG:19 /sys/devices/system/cpu/cpu3/cpufreq/scaling_min_freq = 300000,
  +        SYSCFG:20 /sys/module/pm_8x60/modes/cpu0/power_collapse/suspend_enabled = 1,
  +        SYSCFG:21 /sys/module/pm_8x60/modes/cpu1/power_collapse/suspend_enabled = 1,
  +        SYSCFG:22 /sys/module/pm_8x60/modes/cpu2/power_collapse/suspend_enabled = 1,
  +        SYSCFG:23 /sys/module/pm_8x60/modes/cpu3/power_collapse/suspend_enabled = 1,
  +        SYSCFG:24 /sys/module/pm_8x60/modes/cpu0/standalone_power_collapse/suspend_enabled = \*20{abcde}\*19{fghij}fghi,
  +        SYSCFG:25 /sys/module/pm_8x60/modes/cpu1/standalone_power_collapse/suspend_enabled = 1,
  +        SYSCFG:26 /sys/module/pm_8x60/modes/cpu2/standalone_power_collapse/suspend_enabled = 1,
  +        SYSCFG:27 /sys/module/pm_8x60/modes/cpu3/standalone_power_collapse/suspend_enabled = 1,
  +        SYSCFG:28 /sys/module/pm_8x60/modes/cpu0/standalone_power_collapse/idle_enabled = 1,
  +        SYSCFG:29 /sys/module/pm_8x60/modes/cpu1/standalone_power_collapse/idle_enabled = 1,
  +        SYSCFG:30 /sys/module/pm_8x60/modes/cpu2/standalone_power_collapse/idle_enabled = 1,
  +        SYSCFG:31 /sys/module/pm_8x60/modes/cpu3/standalone_power_collapse/idle_enabled = 1,
  +        SYSCFG:32 /sys/module/pm_8x60/modes/cpu0/power_collapse/idle_enabled = 1,
  +        SYSCFG:33 /sys/module/lpm_resources/enable_low_power/l2 = 2,
  +        SYSCFG:34 /sys/module/lpm_resources/enable_low_power/pxo = 1,
  +        SYSCFG:35 /sys/module/lpm_resources/enable_low_power/vdd_dig = 1,
  +        SYSCFG:36 /sys/module/lpm_resources/enable_low_power/vdd_mem = 1,
  +        syscfg    0-...,"setting"                                   SYSCFG(num),OK
