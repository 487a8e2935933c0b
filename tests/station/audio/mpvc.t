#: Switches the bias of the headset's microphone.
#: mpvc=ON | ON 1 on, 0 off. One blank; `ERROR` when a register of the codec didn't take its value

on and off are a sequence of registers each
  phone    clock hold
  #:
  send     mpvc=1 after 500 -> MPVC: ,OK
  phone    codec 101 -> 55 | codec 110 -> ED | codec 108 -> 09 | codec 12E -> C0 | codec 12F -> A0
  phone    codec 131 -> A6 | codec 30C -> 06
  send     mpvc=0 after 500 -> MPVC: ,OK
  phone    codec 110 -> 7D | codec 108 -> 04 | codec 12E -> 40 | codec 12F -> A0 | codec 131 -> 17
  phone    codec 30C -> 00 | codec 3DC -> 0A | codec 14E -> 04

the steps in their order
  send     mpvc=1 -> MPVC: ,OK
  phone    shell 7 -> 0 echo "0x101 0x55" > /sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg\n
  + 0 echo "0x110 0xed" > /sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg\n
  + 0 echo "0x108 0x09" > /sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg\n
  + 0 echo "0x12e 0xc0" > /sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg\n
  + 0 echo "0x12f 0xa0" > /sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg\n
  + 0 echo "0x131 0xa6" > /sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg\n
  + 0 echo "0x30c 0x06" > /sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg

a register that takes its value the second time, and one that never does
  phone    fail codec 110 1
  send     mpvc=1 -> MPVC: ,OK
  phone    codec 12F 88 | fail codec 12f all
  send     mpvc=1 -> MPVC: ,ERROR
  phone    codec 12F -> 88
  # the steps behind it were done
  phone    codec 30C -> 06
  phone    fail off

the wait for the bandgap ends
  phone    speed 1000 | fail codec 101 all
  send     mpvc=0 -> MPVC: ,ERROR
  phone    codec 14E -> 04
  phone    fail off

how it is asked for
  send     mpvc -> MPVC: ,SYNTAX
  send     mpvc=2 -> SYNTAX
  send     mpvc?0 -> MPVC: ,OK
  send     mpvc=? -> MPVC:Set mic bias on/off,mpvc      0x0-0x01                                          MPVC(on/off),OK
