#: Starts a static WLAN transmission.
#: wstx=CH,RATE,1[,PWR[,BW]] | channel 1 to 252; BW 0 to 10 says how wide and on which side of the channel. RATE and PWR
#:   have no effect
#: The answer is one blank; it is `OK` also when the radio refused, which `widl` or a look at the air tells. Another
#: number in place of the 1 is `ERROR` and changes nothing.

the channel goes out shifted by its bandwidth; rate and power don't
  send     wlpu -> WLPU: ,OK
  #:
  send     wstx=6,3,1,17 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 6 -w 0 -y
  send     wstx?40,0,1,0,7 -> WSTX: ,OK
  phone    shell 2 -> 0 wlanftmtest -z\n0 wlanftmtest -c 34 -w 7 -y

the bandwidths' shifts and channels, from their first to their last
  send     wlpu -> WLPU: ,OK
  send     wstx=3,0,1,0,1 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 1 -w 1 -y
  send     wstx=250,0,1,0,2 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 250 -w 2 -y
  send     wstx=250,0,1,0,3 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 252 -w 3 -y
  send     wstx=7,0,1,0,4 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 7 -w 4 -y
  send     wstx=7,0,1,0,5 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 5 -w 5 -y
  send     wstx=246,0,1,0,6 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 248 -w 6 -y
  send     wstx=7,0,1,0,7 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 1 -w 7 -y
  send     wstx=8,0,1,0,8 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 6 -w 8 -y
  send     wstx=9,0,1,0,9 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 11 -w 9 -y
  send     wstx=246,0,1,0,10 -> WSTX: ,OK
  phone    shell 1 -> 0 wlanftmtest -c 252 -w 10 -y

a channel or a bandwidth that there isn't sends nothing, and counts as a transmission all the same
  send     wlpu -> WLPU: ,OK
  send     wstx=2,0,1,0,1 | wstx=247,0,1,0,4 | wstx=100,0,1,0,11 -> WSTX: ,OK
  send     widl -> WIDL: ,OK
  # nothing static was sent, so each is ended as a burst
  phone    shell 4 -> 0 wlanftmtest -e\n0 wlanftmtest -s\n0 wlanftmtest -s\n0 wlanftmtest -s

another mode leaves all alone, also a transmission that runs
  send     wstx=6,0,1 -> WSTX: ,ERROR
  send     wlpu -> WLPU: ,OK
  send     wstx=6,0,1 -> WSTX: ,OK
  send     wstx=1,0,0 | wstx -> WSTX: ,ERROR
  phone    shell 1 -> 0 wlanftmtest -c 6 -w 0 -y
  phone    fail wlanftmtest -z
  send     wstx=7,0,1 -> WSTX: ,ERROR
  send     wstx=7,0,1 -> WSTX: ,OK
  phone    shell 2 -> 0 wlanftmtest -z\n0 wlanftmtest -c 7 -w 0 -y

the help is one line
  send     wstx=? -> WSTX:WLAN static TX,wstx      (1-14)(0-12)(0-2)(1-17)(0-10)                     stx(ch,rate,mode,pwr,bw),OK
