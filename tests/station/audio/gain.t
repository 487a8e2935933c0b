#: Chooses a step of gain for an output, an input, or a loopback.
#: gain=1,OUTPUT,STEP | the gain of a tone: OUTPUT 1 speaker, 3 ear, 4 plug right, 5 plug left; 2, a second speaker, is taken
#:   and does nothing
#: gain=2,INPUT,STEP | the gain of a capture: INPUT 1 first, 2 second microphone, 3 that of a headset
#: gain=3,PATH,OUTSTEP,INSTEP | both gains of a combined test, PATH 1 plug left, 2 plug right
#: gain=5,OUTPUT,STEP | the gain of a loopback's output: OUTPUT 1 ear, 2 or 3 speaker
#: gain=6,INPUT,STEP | the gain of a loopback's input: INPUT 1 first, 2 second microphone, 9 that of a headset; 0 none
#: STEP is 0 to 9: 0 the default, 2 the usual one, 3 and up louder as far as a path has steps. The gain of a path that runs
#: changes at once; for one that doesn't run the step is kept for its next start, and one that it lacks is an `ERROR`. A
#: loopback's gain goes to the card and isn't kept. The answer is an empty line.

a running tone changes at once, and keeps its step
  phone    clock hold
  send     aloop=1,1,1 -> ALOOP:,OK
  #: 90 instead of 70 on the speaker's volume, while its tone runs:
  send     gain=1,1,5 -> GAIN:,OK
  phone    sound 1 -> control 36 90
  phone    clock +1000
  # 6 dB above full
  phone    listen speaker -> 1000 11972
  send     aloop=1,1,0 after 5 -> ALOOP:,OK
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    mixer 36 -> 90

a step that a running path lacks is refused by the card, and is the next start's
  phone    clock hold
  send     aloop=1,1,1 -> ALOOP:,OK
  send     gain=1,1,6 -> GAIN:,ERROR
  phone    sound 1 -> control 36 -1 refused
  phone    clock +1000 | listen speaker -> 1000 1197
  send     aloop=1,1,0 after 5 -> ALOOP:,OK
  send     aloop=1,1,1 -> ALOOP:,ERROR
  send     gain=1,1,2 -> GAIN:,OK
  send     aloop=1,1,1 -> ALOOP:,OK
  # a step past the last changes nothing of a running path
  send     gain=1,1,10 -> GAIN:,OK
  phone    mixer 36 -> 70

a path that doesn't run keeps its step for the next start
  phone    clock hold
  send     gain=1,1,4 -> GAIN:,OK
  phone    sound ->
  send     gain=1,1,7 | gain=1,1,10 -> GAIN:,ERROR
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    sound 1 -> control 36 80
  # the speaker runs, the ear doesn't
  send     gain=1,3,3 -> GAIN:,OK
  phone    sound 1 -> control 36 80
  send     aloop=1,1,0 after 5 -> ALOOP:,OK
  send     aloop=1,3,1 -> ALOOP:,OK
  phone    sound 1 -> control 30 81

plug left and right are two paths of one plug
  phone    clock hold
  send     aloop=1,5,1 -> ALOOP:,OK
  send     gain=1,4,3 -> GAIN:,OK
  phone    sound 1 -> control 17 8
  send     gain=1,5,3 -> GAIN:,OK
  phone    sound 2 -> control 30 80\ncontrol 17 14

inputs, and both at once
  phone    clock hold
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle
  send     gain=2,1,5 -> GAIN:,OK
  phone    sound 2 -> control 39 100\ncontrol 27 12
  send     gain=2,2,3 | gain=2,3,9 -> GAIN:,OK
  phone    sound 2 -> control 39 100\ncontrol 27 12
  send     gain=2,4,1 -> GAIN:,ERROR
  send     aurst=0 after 90 -> AURST:,OK
  #: Steps 3 out of the plug, 2 into the headset's microphone:
  send     gain=3,1,3,2 -> GAIN:,OK
  # a step that the output lacks fails, and the input has been set by then
  send     gain=3,2,6,0 | gain=3,3,1,1 -> GAIN:,ERROR
  send     aloop=3,1,1 -> ALOOP:,OK
  phone    mixer 17 -> 14
  phone    idle
  # each side has its own step: 9 is the headset's short one, and the only one of another value
  send     gain=3,1,5,9 -> GAIN:,OK
  phone    sound 3 -> control 41 1\ncontrol 30 80\ncontrol 17 20
  send     gain=2,3,8 -> GAIN:,OK
  phone    sound 1 -> control 41 85

a loopback's gains go to the card and aren't kept
  send     gain=5,1,6 -> GAIN:,OK
  phone    sound 1 -> control 41 93
  send     gain=5,2,1 -> GAIN:,OK
  phone    sound 1 -> control 41 72
  send     gain=5,3,7 -> GAIN:,OK
  phone    sound 1 -> control 41 96
  send     gain=6,1,4 -> GAIN:,OK
  phone    sound 1 -> control 39 108
  send     gain=6,2,3 -> GAIN:,OK
  phone    sound 1 -> control 38 96
  send     gain=6,9,2 -> GAIN:,OK
  phone    sound 1 -> control 41 90
  send     gain=6,0,200 -> GAIN:,OK
  phone    sound 1 -> control 41 90
  send     gain=5,4,1 | gain=6,3,1 -> GAIN:,ERROR
  # a step that the path lacks is refused by the card
  send     gain=6,1,5 -> GAIN:,ERROR

a second speaker is no failure
  send     gain=1,2,9 -> GAIN:,OK
  send     gain=1,6,1 -> GAIN:,ERROR

how it is asked for
  send     gain=1,1 -> GAIN:,ERROR
  send     gain=4,1,1 | gain=7,1,1 -> GAIN:,SYNTAX
  # values are cut to bytes
  send     gain=257,1,256 -> GAIN:,OK
  send     gain?1,1,1 -> GAIN:,ERROR
  send     gain=? -> GAIN:,gain                                                        gain(),ERROR
  send     gain=?1,1,1 -> GAIN:Configure audio gains both input and output,gain                                                        gain(),OK
