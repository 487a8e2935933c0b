# The unit test of the system modes holds every setting of each; here is what becomes of some.

mode 1 keeps the current steady: one frequency, no sleep
  phone    idle
  write    /sys/devices/system/cpu/cpufreq/ondemand/up_threshold 55
  send     sysmode=1
  expect   SYSMODE: ,OK
  file     /sys/devices/system/cpu/cpu0/cpufreq/scaling_governor -> powersave
  file     /sys/devices/system/cpu/cpu1/cpufreq/scaling_max_freq -> 300000
  file     /sys/devices/system/cpu/cpufreq/ondemand/up_threshold -> 55
  file     /sys/module/pm_8x60/modes/cpu3/power_collapse/suspend_enabled -> 0
  file     /sys/module/lpm_resources/enable_low_power/vdd_mem -> 0

mode 2 leaves three processors offline and writes nothing else for them
  phone    idle
  write    /sys/devices/system/cpu/cpu1/cpufreq/scaling_governor untouched
  write    /sys/devices/system/cpu/cpu2/cpufreq/scaling_max_freq untouched
  write    /sys/devices/system/cpu/cpu3/cpufreq/scaling_min_freq untouched
  send     sysmode?2
  expect   SYSMODE: ,OK
  file     /sys/devices/system/cpu/cpu0/online -> 1
  file     /sys/devices/system/cpu/cpu1/online -> 0
  file     /sys/devices/system/cpu/cpu3/online -> 0
  file     /sys/devices/system/cpu/cpu1/cpufreq/scaling_governor -> untouched
  file     /sys/devices/system/cpu/cpu2/cpufreq/scaling_max_freq -> untouched
  file     /sys/devices/system/cpu/cpu3/cpufreq/scaling_min_freq -> untouched

mode 3 runs as fast as it can, and a setting that fails is passed over
  phone    fail write /sys/devices/system/cpu/cpu0/cpufreq/scaling_governor
  send     sysmode=3
  expect   SYSMODE: ,OK
  file     /sys/devices/system/cpu/cpu1/cpufreq/scaling_governor -> performance
  file     /sys/devices/system/cpu/cpu0/cpufreq/scaling_max_freq -> 2265600

other modes and counts are syntax errors, and the help
  send     sysmode=4
  expect   SYSMODE: ,SYNTAX
  send     sysmode
  expect   SYSMODE: ,SYNTAX
  send     sysmode=?
  expect   SYSMODE:Set system mode,SYSMODE:0 default setting,SYSMODE:1 stable current setting,
  +        SYSMODE:2 low current setting,SYSMODE:3 high current setting,
  +        sysmode   0-3                                               SYSMODE(level),OK
