#: Records five seconds from a microphone into `/system/testfile.wav`.
#: arec=MIC | MIC 1 the first (when it is left out), 2 the second microphone. An empty line; when it fails `record() failed`
#:   before it, and `ERROR`
#: The command takes the five seconds. The file is what [`aplay`](#aplay) plays.

five seconds of the first microphone
  phone    clock hold | source mic1 noise 0
  #:
  send     arec=1 after 5000 -> AREC:,OK
  phone    shell 1 -> 0 arec -D hw:0,0 -C 1 -R 48000 -T 5 /system/testfile.wav
  phone    sound 19 -> control 291 1\ncontrol 413 1\ncontrol 557 0\ncontrol 380 10\ncontrol 428 2\ncontrol 39 97\ncontrol 27 0\n
  + capture open\ncapture setup 48000 1 8192 1024\ncapture start\ncapture stop\ncapture close\ncontrol 291 0\ncontrol 413 0\n
  + control 557 0\ncontrol 380 0\ncontrol 428 0\ncontrol 39 97\ncontrol 27 0
  file     /system/testfile.wav -> RIFF\x24\x53\x07\0WAVEfmt \x10\0\0\0\x01\0\x01\0\x80\xBB\0\0\0\x77\x01\0\x02\0\x10\0data\0\x53\x07\0
  + \*480000{\0}

the second microphone is the other decimator
  phone    clock hold
  send     arec=2 after 5000 -> AREC:,OK
  phone    sound 7 -> control 291 0\ncontrol 413 0\ncontrol 557 0\ncontrol 380 0\ncontrol 429 0\ncontrol 38 97\ncontrol 28 0

a card that is busy or gone, and a control that can't be set
  phone    clock hold
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle
  send     arec=1 -> AREC:record() failed,AREC:,ERROR
  phone    shell 1 -> 1 arec -D hw:0,0 -C 1 -R 48000 -T 5 /system/testfile.wav
  send     aurst=0 after 90 -> AURST:,OK
  phone    pcm off
  send     arec=1 -> AREC:record() failed,AREC:,ERROR
  phone    pcm on | fail mixer 39
  send     arec after 5000 -> AREC:record() failed,AREC:,ERROR
  # it recorded and switched the route off all the same
  phone    sound 1 -> control 27 0

how it is asked for
  send     arec=0 | arec=3 -> SYNTAX
  send     arec? -> AREC:,ERROR
  send     arec?9 -> SYNTAX
  send     arec=? -> AREC:Record audio to file,arec      (1-2)                                             arec(),OK
  # the value is a byte: 258 is 2
  phone    pcm off
  send     arec=258 -> AREC:record() failed,AREC:,ERROR
