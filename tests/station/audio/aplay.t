#: Plays `/system/testfile.wav`.
#: aplay=OUTPUT | OUTPUT 0 the speaker (when it is left out), 1 the plug. An empty line; when it fails `play() failed` before
#:   it, and `ERROR`
#: The command takes as long as the file. A phone without a second speaker plays on its speaker and tells a failure behind it.

what arec recorded comes out of the plug
  phone    clock hold | source mic1 noise 0 | source mic1 400 1000
  send     arec=1 after 5000 -> AREC:,OK
  #:
  send     aplay=1
  phone    clock +4000
  # 13 dB into the file; 4 dB and 18 dB down on the way out
  phone    listen left -> 400 355 | listen right -> 400 355
  after    1000 -> APLAY:,OK
  phone    sound 14 -> playback stop\nplayback close\ncontrol 337 0\ncontrol 462 0\ncontrol 556 0\ncontrol 454 0\ncontrol 431 0\n
  + control 455 0\ncontrol 30 0\ncontrol 17 20\ncontrol 451 0\ncontrol 431 0\ncontrol 31 0\ncontrol 18 20
  send     aplay
  phone    clock +4000 | listen speaker -> 400 891
  after    1000 -> APLAY:play() failed,APLAY:,ERROR
  phone    shell 1 -> 0 aplay /system/testfile.wav

no file, and one that is none
  send     aplay=1 -> APLAY:play() failed,APLAY:,ERROR
  phone    shell 1 -> 1 aplay /system/testfile.wav
  write    /system/testfile.wav RIFFxxxxWAVEfmt 
  send     aplay=1 -> APLAY:play() failed,APLAY:,ERROR
  phone    sound 1 -> control 18 20

how it is asked for
  send     aplay=2 -> SYNTAX
  send     aplay? -> APLAY:,ERROR
  send     aplay=? -> APLAY:Play audio from file,aplay     (0-1)                                             aplay(),OK
