#: Chooses steps of gain for all outputs or all inputs at once.
#: again=1,A,B,C,0 | outputs: step A for the ear, B for the speaker, C for the plug
#: again=0,A,B,C,0 | inputs: step A for the first microphone, B for that of a headset, C for the second microphone
#: The fifth value must be there and isn't looked at. The steps are those of [`gain`](#gain). The first step that a path
#: lacks ends the command with `ERROR` and no line; those before it are set.

outputs
  phone    clock hold
  #:
  send     again=1,2,4,5,0 -> AGAIN:,OK
  # nothing runs: all is kept for the next starts
  phone    sound ->
  send     aloop=1,3,1 -> ALOOP:,OK
  phone    mixer 30 -> 75
  send     aurst=0 after 5 -> AURST:,OK
  send     aloop=1,1,1 -> ALOOP:,OK
  phone    mixer 36 -> 80
  send     aurst=0 after 5 -> AURST:,OK
  send     aloop=1,4,1 -> ALOOP:,OK
  phone    mixer 18 -> 20
  send     aurst=0 after 5 -> AURST:,OK
  send     aloop=1,5,1 -> ALOOP:,OK
  phone    mixer 17 -> 20

inputs
  phone    clock hold
  # 9 is the headset's only step of another value
  send     again=0,5,9,2,0 -> AGAIN:,OK
  send     aloop=2,1,1 -> ALOOP:,OK
  phone    idle | mixer 39 -> 100
  send     aurst=0 after 90 -> AURST:,OK
  send     aloop=2,2,1 -> ALOOP:,OK
  phone    idle | mixer 38 -> 97 | mixer 28 -> 4
  send     aurst=0 after 90 -> AURST:,OK
  send     aloop=3,2,1 -> ALOOP:,OK
  phone    mixer 41 -> 1

a step that a path lacks ends it
  phone    clock hold
  send     again=1,5,6,3,0 -> ERROR
  # the ear came first, the plug behind
  send     aloop=1,3,1 -> ALOOP:,OK
  phone    mixer 30 -> 93
  send     aurst=0 after 5 -> AURST:,OK
  send     aloop=1,5,1 -> ALOOP:,OK
  phone    mixer 17 -> 8

how it is asked for
  send     again=1,2,3 | again -> AGAIN:,SYNTAX
  send     again=2,1,1,1,1 -> ERROR
  send     again?1,1,1,1,1 -> AGAIN:,ERROR
  send     again=? -> AGAIN:Configure audio gains both input and output,again                                                       again(),OK
