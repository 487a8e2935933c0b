#: Sets how much the processor may draw and how steadily, as a set of kernel settings.
#: sysmode=MODE | 0 the default, as after a start; 1 stable current: one frequency, no sleep; 2 low current: one
#:   processor; 3 high current: full speed. A setting that fails is passed over. Answers with one blank; another mode
#:   is `SYNTAX`
#: sysmode=? | the modes
# The unit test of the system modes holds every setting of each; here is what becomes of some.

mode 1 keeps the current steady: one frequency, no sleep
  phone    idle
  #:
  send     sysmode=1 -> SYSMODE: ,OK
  file     /sys/devices/system/cpu/cpu0/cpufreq/scaling_governor -> powersave
  file     /sys/devices/system/cpu/cpu1/cpufreq/scaling_max_freq -> 300000
  file     /sys/module/pm_8x60/modes/cpu3/power_collapse/suspend_enabled -> 0

mode 2 leaves three processors offline and writes nothing else for them
  phone    idle
  write    /sys/devices/system/cpu/cpu1/cpufreq/scaling_governor untouched
  send     sysmode?2 -> SYSMODE: ,OK
  file     /sys/devices/system/cpu/cpu0/online -> 1
  file     /sys/devices/system/cpu/cpu1/online -> 0
  file     /sys/devices/system/cpu/cpu3/online -> 0
  file     /sys/devices/system/cpu/cpu1/cpufreq/scaling_governor -> untouched

mode 3 runs as fast as it can, and a setting that fails is passed over
  phone    fail write /sys/devices/system/cpu/cpu0/cpufreq/scaling_governor
  send     sysmode=3 -> SYSMODE: ,OK
  file     /sys/devices/system/cpu/cpu1/cpufreq/scaling_governor -> performance

other modes and counts are syntax errors, and the help
  send     sysmode=4 | sysmode -> SYSMODE: ,SYNTAX
  send     sysmode=? -> SYSMODE:Set system mode,SYSMODE:0 default setting,SYSMODE:1 stable current setting,
  +        SYSMODE:2 low current setting,SYSMODE:3 high current setting,
  +        sysmode   0-3                                               SYSMODE(level),OK
