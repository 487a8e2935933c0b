#: Sends WLAN bursts.
#: wbtx[=CH[,RATE[,PRE[,LEN[,INTERVAL[,MODE[,PWR[,BW[,DPD]]]]]]]]] | channel 1 to 252; RATE 0 to 102; preamble 0 to 4, or
#:   99 for the one that goes with the rate; bytes, or 65535 for as many as go with the rate; INTERVAL in microseconds; PWR
#:   with up to three digits behind the point; BW 0 to 10. Left out they are 1, 3, 99, 65535, 200, 1, next to no power,
#:   0, 0
#: The answer is one blank: `SYNTAX` for a rate that there isn't, and before the power-up. A tenth value has all left as
#: they are. A transmission that runs is stopped first.

without values the defaults are sent, with the preamble and the length that go with the rate
  send     wlpu -> WLPU: ,OK
  send     wbtx -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -A -c 1 -r 3 -p 4 -i 200 -l 1000 -w 0 -g 25 -o 0 -G 1

each value has its place; power is in thousandths, of which tenths go out
  send     wlpu -> WLPU: ,OK
  #:
  send     wbtx=100,21,0,32,30,4,12.5,1,1 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -A -c 98 -r 31 -p 3 -i 30 -l 32 -w 1 -g 1250 -o 1 -G 4
  # the same channel again: the short line
  send     wbtx?98,0,1,65534,31,2,-1.5,0,2 -> WBTX: ,OK
  phone    shell 2 -> 0 wlanftmtest -s\n0 wlanftmtest -B -c 98 -r 0 -p 4 -i 31 -l 65534 -g -150 -o 2
  send     wbtx=99 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -A -c 99 -r 3 -p 4 -i 200 -l 1000 -w 0 -g 25 -o 0 -G 1

the station's rates and the chip's, at the ends of their ranges; preambles and lengths of their own accord
  send     wlpu -> WLPU: ,OK
  send     wbtx=1,4 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -A -c 1 -r 0 -p 4 -i 200 -l 100 -w 0 -g 25 -o 0 -G 1
  send     wbtx=1,1 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 1 -p 4 -i 200 -l 400 -g 25 -o 0
  send     wbtx=1,2 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 2 -p 4 -i 200 -l 700 -g 25 -o 0
  send     wbtx=1,5 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 7 -p 3 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,6 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 8 -p 3 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,7 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 9 -p 0 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,12 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 14 -p 0 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,14 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 24 -p 0 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,15 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 25 -p 2 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,13,2 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 23 -p 0 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,20,3 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 30 -p 2 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,44,4 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 54 -p 1 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,45 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 63 -p 2 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,53 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 71 -p 2 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,54 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 73 -p 2 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,62 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 81 -p 2 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,63 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 83 -p 2 -i 200 -l 1000 -g 25 -o 0
  send     wbtx=1,102 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -B -c 1 -r 122 -p 2 -i 200 -l 1000 -g 25 -o 0

a rate, a preamble, a channel that there isn't
  send     wlpu -> WLPU: ,OK
  send     wbtx=1,103 | wbtx=1,-1 -> WBTX: ,SYNTAX
  send     wbtx=1,0,5 | wbtx=253,0 -> WBTX: ,ERROR
  phone    shell 1 -> 0 wlanftmtest -e

the longest line that values can make goes out whole
  send     wlpu -> WLPU: ,OK
  send     wbtx=246,102,99,-2147483648,-2147483648,4294967295,-2000000,10,-2147483648 -> WBTX: ,OK
  # 2000000 thousand times -1 in 32 bits is -2000000000
  phone    shell 1 -> 0 wlanftmtest -A -c 252 -r 122 -p 2 -i -2147483648 -l -2147483648 -w 10 -g -200000000 -o -2147483648 -G 4294967295

ten values or more leave all defaults
  send     wlpu -> WLPU: ,OK
  send     wbtx=9,9,1,100,100,0,1,1,1,1 -> WBTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -A -c 1 -r 3 -p 4 -i 200 -l 1000 -w 0 -g 25 -o 0 -G 1
  send     wbtx=?9,9,1,100,100,0,1,1,1,1 -> WBTX:WLAN bursted TX,
  + wbtx      (1-252)(0-44)(0-4)(32-2400)(30-1000)(0-4)(1.0-16.0)(0-2)(btx(ch,rate,pre,len,interval,mod,OK

a failing burst is none, and a running one is stopped before the next
  send     wbtx -> WBTX: ,SYNTAX
  send     wlpu -> WLPU: ,OK
  phone    fail wlanftmtest -A
  send     wbtx -> WBTX: ,ERROR
  send     wtxg=1 -> WTXG:Not in Tx!,WTXG: ,SYNTAX
  send     wbtx -> WBTX: ,OK
  phone    fail wlanftmtest -s
  send     wbtx -> WBTX: ,ERROR
  phone    shell 1 -> 0 wlanftmtest -A -c 1 -r 3 -p 4 -i 200 -l 1000 -w 0 -g 25 -o 0 -G 1
  send     wbtx -> WBTX: ,OK
