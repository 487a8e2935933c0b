#: Stops and resets sound.
#: aurst=0 | stops a tone and a capture and switches their paths off. The last block that was captured can be measured still
#: aurst=3 | switches the loopbacks off
#: The answer is an empty line, with `ERROR` when a control couldn't be set; the others are set all the same. Gains keep
#: their steps.

streams
  phone    clock hold | source stream 1000 6000
  send     aloop=1,1,1 | aloop=2,1,1 -> ALOOP:,OK
  phone    idle
  #:
  send     aurst=0 after 90 -> AURST:,OK
  # the tone's two routes, the capture's default values, then all that a stream may have switched on
  phone    sound 66 -> playback stop\nplayback close\ncontrol 337 0\ncontrol 462 0\ncontrol 556 0\ncontrol 441 0\ncontrol 36 0\n
  + capture stop\ncapture close\ncontrol 291 0\ncontrol 413 0\ncontrol 557 0\ncontrol 380 10\ncontrol 428 2\ncontrol 39 97\ncontrol 27 0\n
  + control 337 0\ncontrol 462 0\ncontrol 556 0\ncontrol 441 0\ncontrol 36 0\n
  + control 337 0\ncontrol 462 0\ncontrol 556 0\ncontrol 431 0\ncontrol 463 0\ncontrol 454 0\ncontrol 30 0\n
  + control 337 0\ncontrol 462 0\ncontrol 556 0\ncontrol 454 0\ncontrol 431 0\ncontrol 455 0\ncontrol 30 0\ncontrol 17 20\n
  + control 451 0\ncontrol 431 0\ncontrol 31 0\ncontrol 18 20\ncontrol 291 0\ncontrol 413 0\ncontrol 557 0\n
  + control 380 0\ncontrol 428 0\ncontrol 39 97\ncontrol 27 0\ncontrol 380 0\ncontrol 429 0\ncontrol 38 97\ncontrol 28 0\n
  + control 291 0\ncontrol 413 0\ncontrol 557 0\ncontrol 380 0\ncontrol 426 0\ncontrol 41 0\ncontrol 25 0\n
  + control 380 0\ncontrol 429 0\ncontrol 38 0\ncontrol 28 0\ncontrol 380 0\ncontrol 424 0\ncontrol 43 0\ncontrol 29 0
  # the block is there still
  send     aloop=2,1,0 -> ALOOP:1000,1945,14587479,OK

loopbacks
  send     aloop=5,1 -> ALOOP:,OK
  phone    codec 1b4 20
  #:
  send     aurst=3 -> AURST:,OK
  phone    sound 38 -> control 426 0\ncontrol 376 0\ncontrol 441 0\ncontrol 25 0\ncontrol 36 0\ncontrol 41 84\n
  + control 426 0\ncontrol 376 0\ncontrol 454 0\ncontrol 25 0\ncontrol 431 0\ncontrol 30 0\ncontrol 16 1\ncontrol 463 0\ncontrol 41 84\n
  + control 428 0\ncontrol 27 0\ncontrol 375 0\ncontrol 451 0\ncontrol 31 0\ncontrol 18 20\n
  + control 429 0\ncontrol 28 0\ncontrol 375 0\ncontrol 451 0\ncontrol 31 0\ncontrol 18 20\n
  + control 426 0\ncontrol 25 0\ncontrol 375 0\ncontrol 454 0\ncontrol 431 0\ncontrol 30 0\ncontrol 17 20\ncontrol 455 0\n
  + control 39 84\ncontrol 38 84\ncontrol 41 84
  phone    codec 1b4 -> 27 | listen ear -> silent

a control that can't be set is told, and doesn't keep the others from being set
  phone    fail mixer 441
  send     aurst=0 -> AURST:,ERROR
  phone    sound 1 -> control 29 0
  phone    fail mixer 426
  send     aurst=3 -> AURST:,ERROR
  phone    sound 1 -> control 41 84
  # the bias register doesn't count
  phone    fail codec 1b4 2 | codec 1b4 20
  send     aurst=3 -> AURST:,OK
  phone    codec 1b4 -> 20

how it is asked for
  send     aurst | aurst=1 | aurst=2 -> AURST:,SYNTAX
  send     aurst=? -> AURST:Audio Reset,aurst     (0-2)                                             aurst(),OK
  send     aurst?0 -> AURST:,ERROR
