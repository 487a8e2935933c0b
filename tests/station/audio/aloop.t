#: Tests a path of sound: a tone through an output, a capture from an input that is measured, or both; or joins inputs and outputs.
#: aloop=1,0,FREQ | the frequency of the tone from now on, in Hz; 1000 without FREQ. It must be below the sample rate, and
#:   one wave must fit the buffer (24 Hz on a healthy phone)
#: aloop=1,OUTPUT,START | starts (START 1) or stops (0) the tone: OUTPUT 1 speaker, 3 ear, 4 plug right, 5 plug left
#: aloop=2,INPUT,1 | starts a capture: INPUT 1 or 6 first microphone, 2 or 7 second microphone, 4 radio
#: aloop=2,INPUT,0 | stops it, and a tone that runs, and measures its last 80 ms: the frequency of the strongest tone in Hz,
#:   its level, the power of all there is. Without a tone that can be measured `0,0,` and the power, and `ERROR`; an
#:   empty line and `ERROR` without a capture
#: aloop=3,PATH,START | both: PATH 1 plug left and 2 plug right into the microphone of a headset, 3 plug left into the
#:   left, 4 plug right into the right line input. Stopping measures
#: aloop=5,OUTPUT | joins an output to the microphone of a headset: OUTPUT 1 ear, 2 or 3 speaker. It stays until `aurst=3`
#: aloop=6,INPUT | joins an input to the plug: INPUT 1 first, 2 second microphone, 9 that of a headset
#: An answer is an empty line unless it has numbers. Tone and capture run on behind it. Each test writes what it played
#: and heard into text files: `/system/samples_out.txt`, `/system/samples_in.txt`, `/data/hanning.txt`, `/data/fft.txt`.
#: [docs/audio.md](../audio.md) draws the paths.

a tone comes out of the speaker until it is stopped
  phone    clock hold
  #:
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    sound 10 -> control 337 1\ncontrol 462 1\ncontrol 556 0\ncontrol 441 5\ncontrol 36 70\nplayback open\n
  + playback setup 48000 1 4096 96\nplayback start\ncontrol 36 1\ncontrol 36 70
  phone    clock +500
  # 6000 at 70: 14 dB below full
  phone    listen speaker -> 1000 1197 | listen ear -> silent
  send     aloop=1,3,1 -> ALOOP:,OK
  # a tone that runs is left as it is
  phone    mixer 463 -> 0
  send     aloop=1,1,0 after 5 -> ALOOP:,OK
  phone    sound 7 -> playback stop\nplayback close\ncontrol 337 0\ncontrol 462 0\ncontrol 556 0\ncontrol 441 0\ncontrol 36 0
  phone    listen speaker -> silent
  # with no tone there is nothing to stop
  send     aloop=1,1,0 after 5 -> ALOOP:,OK

each output has its own controls
  phone    clock hold
  send     aloop=1,3,1 -> ALOOP:,OK
  phone    sound 12 -> control 337 1\ncontrol 462 1\ncontrol 556 0\ncontrol 431 1\ncontrol 463 1\ncontrol 454 5\ncontrol 30 0\n
  + playback open\nplayback setup 48000 1 4096 96\nplayback start\ncontrol 30 1\ncontrol 30 0
  phone    mixer 30 69 | clock +500
  # 6000 at 69, and 4.5 dB
  phone    listen ear -> 1000 1791
  send     aloop=1,3,0 after 5 -> ALOOP:,OK
  phone    mixer 463 -> 0
  send     aloop=1,4,1 -> ALOOP:,OK
  phone    clock +500
  # 4 dB and 18 dB below full
  phone    listen right -> 1000 477 | listen left -> silent
  send     aloop=1,4,0 after 5 -> ALOOP:,OK
  send     aloop=1,5,1 -> ALOOP:,OK
  phone    clock +500 | listen left -> 1000 477 | listen right -> silent

a second speaker and a third plug gain aren't there
  send     aloop=1,2,1 -> ALOOP:,ERROR
  # the speaker's own route has been written by then
  phone    sound 3 -> control 337 1\ncontrol 462 1\ncontrol 556 0
  send     aloop=1,6,1 | aloop=1,7,1 -> ALOOP:,ERROR
  send     aloop=1,7,0 after 5 -> ALOOP:,ERROR
  send     aloop=1,1,2 | aloop=1 -> ALOOP:,SYNTAX
  # 16 is route 0 to the choice and no route to the tone
  send     aloop=1,16,1000 -> ALOOP:,ERROR

the tone's frequency, before it runs and while it does
  phone    clock hold
  send     aloop=1,0,440 | aloop=1,1,1 -> ALOOP:,OK
  phone    clock +500
  # 48000 / 440 is 109 whole samples a wave: 440.4 Hz
  phone    listen speaker -> 440 1197
  #: While a tone runs:
  send     aloop=1,0,3000 -> ALOOP:,OK
  phone    clock +1000 | listen speaker -> 3000 1197
  send     aloop=1,0 -> ALOOP:,OK
  phone    clock +1000 | listen speaker -> 1000 1197

frequencies without a wave fail, and the tone with them
  phone    clock hold
  send     aloop=1,1,1 -> ALOOP:,OK
  send     aloop=1,0,23 -> ALOOP:,ERROR
  phone    clock +1000
  # it has ended, and counts as running until it is stopped
  phone    listen speaker -> silent | sound 2 -> playback stop\nplayback close
  send     aloop=1,1,1 -> ALOOP:,OK
  send     aloop=1,1,0 after 5 -> ALOOP:,OK
  send     aloop=1,1,1 -> ALOOP:,ERROR
  # the same frequency again is no change
  send     aloop=1,0,23 -> ALOOP:,OK
  send     aloop=1,0,0 after 5 -> ALOOP:,ERROR
  send     aloop=1,0,48001 | aloop=1,0,65534 | aloop=1,1,1 -> ALOOP:,ERROR
  send     aloop=1,0,24 -> ALOOP:,OK
  send     aloop=1,0,1 -> ALOOP:,ERROR
  send     aloop=1,0,24000 -> ALOOP:,OK
  # 48000 has one sample a wave, at phase 0
  send     aloop=1,0,48000 | aloop=1,1,1 -> ALOOP:,OK
  phone    clock +500 | listen speaker -> silent

the dump of the tone is its first 512 samples
  send     aloop=1,0,12000 -> ALOOP:,OK
  # 6000 sin of a quarter wave a step, towards zero
  file     /system/samples_out.txt -> \*128{0\n6000\n0\n-6000\n}

a capture measures what the microphone hears of the tone
  phone    clock hold | source mic1 noise 0
  #: A tone through the speaker, measured at the first microphone:
  send     aloop=1,1,1 -> ALOOP:,OK
  #:
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle | clock +80 | listen capture -> 1000 535
  #:
  send     aloop=2,1,0
  phone    clock +90
  # -14 dB, the loop's -20 dB and 13 dB: 535, of which level and power follow
  expect   ALOOP:1000,173,115760,OK
  phone    sound 16 -> capture stop\ncapture close\ncontrol 291 0\ncontrol 413 0\ncontrol 557 0\ncontrol 380 10\ncontrol 428 2\n
  + control 39 97\ncontrol 27 0\nplayback stop\nplayback close\ncontrol 337 0\ncontrol 462 0\ncontrol 556 0\ncontrol 441 0\n
  + control 36 0
  # the block is gone with its measurement
  send     aloop=2,1,0 -> ALOOP:,ERROR

what a capture is set up with
  phone    clock hold | fail prepare capture
  send     aloop=2,2,1 -> ALOOP:,ERROR
  phone    sound 10 -> control 291 1\ncontrol 413 1\ncontrol 557 0\ncontrol 380 9\ncontrol 429 2\ncontrol 38 97\ncontrol 28 0\n
  + capture open\ncapture setup 48000 2 15360 96\ncapture close
  send     aloop=2,2,1 -> ALOOP:,OK
  phone    idle
  # the gains have gone down and up again
  phone    mixer 38 -> 97 | mixer 28 -> 0

a loose loop and a clipping speaker show in the numbers
  phone    clock hold | source mic1 noise 0 | loop speaker mic1 -46
  send     aloop=1,1,1 | aloop=2,1,1 -> ALOOP:,OK
  phone    idle | clock +80
  send     aloop=2,1,0 after 90 -> ALOOP:1000,9,291,OK
  phone    loop speaker mic1 -20 600
  send     aloop=1,1,1 | aloop=2,1,1 -> ALOOP:,OK
  phone    idle | clock +80
  send     aloop=2,1,0 after 90 -> ALOOP:1000,105,45540,OK

the three numbers of a known capture
  phone    clock hold | source stream 440 12000
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle | clock +80
  send     aloop=2,1,0 after 90 -> ALOOP:438,4009,58176509,OK
  phone    source stream 1234 20000
  send     aloop=2,7,1 -> ALOOP:,OK
  phone    idle | clock +80
  send     aloop=2,7,0 after 90 -> ALOOP:1234,6578,163074237,OK

no tone, and one too near the end of the scale, are told with the power
  phone    clock hold | source stream 48 6000
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle | clock +80
  #: A tone of 48 Hz is too low to be measured:
  send     aloop=2,1,0 after 90 -> ALOOP:0,0,14298258,ERROR
  phone    source stream 1000 0
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle | clock +80
  send     aloop=2,1,0 after 90 -> ALOOP:0,0,0,ERROR

a capture is refused while one runs, and the one that runs isn't touched
  phone    clock hold | source stream 1000 6000
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle
  send     aloop=2,1,1 | aloop=3,1,1 -> ALOOP:,ERROR
  # no tone was started for it
  phone    mixer 337 -> 0
  phone    clock +80
  send     aloop=2,1,0 after 90 -> ALOOP:1000,1945,14587479,OK

an input that isn't there
  send     aloop=2,3,1 | aloop=2,5,1 -> ALOOP:,ERROR
  send     aloop=2,1,2 -> ALOOP:,SYNTAX
  # initialising does nothing, whatever the input
  send     aloop=2,1 | aloop=3 -> ALOOP:,OK
  phone    sound ->

the radio's controls
  phone    clock hold | source fm noise 0 | source fm 2000 3000
  send     aloop=2,4,1 -> ALOOP:,OK
  phone    idle | clock +500 | listen capture -> 2000 3000 | mixer 367 -> 1
  phone    mixer 130 0 | clock +500 | listen capture -> silent

the test plug brings the tone back into the inputs of the jack
  phone    clock hold | jack loop | source hsmic noise 0 | source mic2 noise 0 | source line noise 0
  phone    fail prepare capture
  send     aloop=3,1,1 after 5 -> ALOOP:,ERROR
  # a combined test whose capture fails stops the tone that it has started
  phone    sound 35 -> control 337 1\ncontrol 462 1\ncontrol 556 0\ncontrol 454 5\ncontrol 431 1\ncontrol 455 1\ncontrol 30 80\n
  + control 17 8\nplayback open\nplayback setup 48000 1 4096 96\nplayback start\ncontrol 30 1\ncontrol 17 1\ncontrol 30 80\n
  + control 17 8\ncontrol 291 1\ncontrol 413 1\ncontrol 557 0\ncontrol 380 12\ncontrol 426 2\ncontrol 41 85\ncontrol 25 12\n
  + capture open\ncapture setup 48000 2 15360 96\ncapture close\nplayback stop\nplayback close\ncontrol 337 0\ncontrol 462 0\n
  + control 556 0\ncontrol 454 0\ncontrol 431 0\ncontrol 455 0\ncontrol 30 0\ncontrol 17 20
  #: With the test plug in the jack:
  send     aloop=3,1,1 -> ALOOP:,OK
  phone    idle | clock +80
  #:
  send     aloop=3,1,0
  phone    clock +90
  # left 477, -10 dB, 18 dB and 1 dB
  expect   ALOOP:1000,435,731037,OK
  send     aloop=3,2,1 -> ALOOP:,OK
  phone    idle | clock +80
  send     aloop=3,2,0 after 90 -> ALOOP:1000,308,366365,OK
  send     aloop=3,3,1 -> ALOOP:,OK
  phone    idle | clock +80
  send     aloop=3,3,0 after 90 -> ALOOP:1000,548,1158306,OK
  # the right line input, which the test plug joins with plug left alone
  phone    loop right line -7
  send     aloop=3,4,1 -> ALOOP:,OK
  phone    idle | clock +80
  send     aloop=3,4,0 after 90 -> ALOOP:1000,489,920292,OK
  send     aloop=3,5,1 -> ALOOP:,ERROR

loopbacks set their routes and leave them
  send     aloop=5,1 -> ALOOP:,OK
  phone    sound 8 -> control 426 2\ncontrol 376 5\ncontrol 454 3\ncontrol 25 0\ncontrol 431 1\ncontrol 30 93\ncontrol 16 4\n
  + control 463 1
  phone    source hsmic noise 0 | source hsmic 800 1000 | clock hold | clock +500
  # 9 dB, and the amplifier's 0 dB
  phone    listen ear -> 800 2818
  send     aloop=5,2 -> ALOOP:,OK
  phone    sound 5 -> control 426 2\ncontrol 376 5\ncontrol 441 3\ncontrol 25 0\ncontrol 36 93
  phone    clock +500 | listen speaker -> 800 2818
  send     aloop=5,3 | aloop=6,0 -> ALOOP:,OK
  phone    sound 5 -> control 426 2\ncontrol 376 5\ncontrol 441 3\ncontrol 25 0\ncontrol 36 93
  send     aloop=6,1 -> ALOOP:,OK
  phone    sound 6 -> control 428 2\ncontrol 27 4\ncontrol 375 3\ncontrol 451 4\ncontrol 31 96\ncontrol 18 16
  send     aloop=6,2 -> ALOOP:,OK
  phone    sound 6 -> control 429 2\ncontrol 28 4\ncontrol 375 2\ncontrol 451 4\ncontrol 31 96\ncontrol 18 16
  send     aloop=6,9 -> ALOOP:,OK
  phone    sound 8 -> control 426 2\ncontrol 25 5\ncontrol 375 5\ncontrol 454 4\ncontrol 431 1\ncontrol 30 96\ncontrol 17 20\n
  + control 455 1

loopbacks that the phone hasn't
  send     aloop=5,1,1 | aloop=6,10 | aloop=6,11 | aloop=7,1 | aloop=7,9 -> ALOOP:,ERROR
  send     aloop=4,1,1 | aloop=8,1,1 -> ALOOP:,SYNTAX

a refused control and a card that doesn't come up fail the start, which can be repeated
  phone    clock hold | fail mixer 36
  send     aloop=1,1,1 -> ALOOP:,ERROR
  phone    sound 1 -> control 36 70 refused
  phone    fail open playback
  send     aloop=1,1,1 -> ALOOP:,ERROR
  phone    fail setup playback
  send     aloop=1,1,1 -> ALOOP:,ERROR
  phone    fail prepare playback
  send     aloop=1,1,1 -> ALOOP:,ERROR
  phone    fail write playback
  send     aloop=1,1,1 -> ALOOP:,ERROR
  send     aloop=1,1,1 | aloop=2,1,1 -> ALOOP:,OK
  phone    idle | fail off -> 0 faults were never reached

a tone goes on behind an underrun, a suspended card and a failing write
  phone    clock hold
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    clock +100 | pcm xrun playback | clock +1000 | listen speaker -> 1000 1197
  phone    pcm suspend playback | clock +1000 | listen speaker -> 1000 1197
  phone    sound 4 -> playback xrun\nplayback start\nplayback suspend\nplayback start
  phone    fail write playback 3 | clock +1000 | listen speaker -> 1000 1197
  phone    fail off -> 0 faults were never reached

a capture goes on behind an overrun and a failing read, and stays with a suspended card
  phone    clock hold | source stream 1000 6000
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle | pcm xrun capture | fail read capture 2 | clock +240
  send     aloop=2,1,0 after 90 -> ALOOP:1000,1945,14587479,OK
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle | clock +80 | pcm suspend capture | clock +1000
  send     aloop=2,1,0 after 10 -> ALOOP:1000,1945,14587479,OK

a card that is gone, goes while both run, and comes back
  phone    clock hold | pcm off
  send     aloop=1,1,1 -> ALOOP:,ERROR
  phone    pcm on
  send     aloop=1,1,1 | aloop=2,1,1 -> ALOOP:,OK
  phone    idle | clock +80 | pcm off | clock +500 | pcm on
  send     aloop=1,1,0 after 10 -> ALOOP:,OK
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    clock +500 | listen speaker -> 1000 1197

a card without controls at the start is found later
  conf     pcm off
  phone    clock hold
  send     aloop=1,1,1 -> ALOOP:,ERROR
  phone    pcm on
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle | source stream 1000 6000 | clock +160
  # the capture that opened the controls can be stopped
  send     aloop=2,1,0 after 90 -> ALOOP:1000,1945,14587479,OK

another rate and another ring than was asked
  conf     pcm 44100 16384
  phone    clock hold
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    sound 4 -> playback setup 44100 1 16384 96\nplayback start\ncontrol 36 1\ncontrol 36 70
  phone    clock +1000
  # the wave was made for 48000: 918.75 Hz, and no seam in it
  phone    listen speaker -> 919 1197
  send     aloop=1,0,500 -> ALOOP:,OK
  phone    clock +1000
  # 88 samples a wave at 44100
  phone    listen speaker -> 501 1197
  send     aloop=1,1,0 after 5 -> ALOOP:,OK
  # the granted ring has room for longer waves: 6 Hz is 7350 samples
  send     aloop=1,0,6 -> ALOOP:,OK
  send     aloop=1,0,5 -> ALOOP:,ERROR

a small ring
  conf     pcm 48000 600
  phone    clock hold
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    clock +1000 | listen speaker -> 1000 1197

a fast phone makes no underrun
  phone    speed 1000
  send     aloop=1,1,1 | aloop=2,1,1 -> ALOOP:,OK
  phone    idle
  send     aurst=0 -> AURST:,OK
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    idle | listen ear -> silent | sound 3 -> playback start\ncontrol 36 1\ncontrol 36 70

a restart and a power-off while both run
  send     aloop=1,1,1 | aloop=2,1,1 -> ALOOP:,OK
  send     kill
  reboots
  phone    clock hold
  # the card has its reset values again
  phone    mixer 337 -> 0 | mixer 36 -> 84
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    clock +500 | listen speaker -> 1000 1197
  phone    clock run
  send     aloop=2,1,1 -> ALOOP:,OK
  send     poff
  off

a phone without the card's library has no card
  conf     without libphone_card.so
  send     aloop=1,1,1 | aloop=5,1 -> ALOOP:,ERROR

what the card is asked can be seen
  phone    clock hold | calls on
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    calls off
  # set-up prepares by itself; the write is the first filling
  phone    calls text -> read /dev/ttyGS0\nmixer 337\nmixer 462\nmixer 556\nmixer 441\nmixer 36\nopen playback\nsetup playback\n
  + prepare playback\nprepare playback\nwrite playback\nmixer 36\nmixer 36\n
  + write /dev/ttyGS0\nwrite /dev/ttyGS0\nwrite /dev/ttyGS0\nwrite /dev/ttyGS0

how it is asked for
  send     aloop -> ALOOP:,ERROR
  send     aloop=? -> ALOOP:,aloop     [(0-8)[,(0-5)][,[(0,1)][(0x1-0xFFFF)]]]           aloop(set),ERROR
  send     aloop=?1,1,1 -> ALOOP:Audio loop control,aloop     [(0-8)[,(0-5)][,[(0,1)][(0x1-0xFFFF)]]]           aloop(set),OK
  send     aloop?1,1,1 -> ERROR
