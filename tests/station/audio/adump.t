#: Writes all registers of the sound codec to the kernel log.
#: adump=1 | as one entry, a line `NUMBER: VALUE` for each register, hexadecimal. An empty line

all registers, the last too, are one entry of the logs
  phone    codec 000 -> 03
  phone    codec 3ff 5A
  #:
  send     adump=1 -> ADUMP:,OK
  fails    codec 400 -> the codec has no register 400

a codec that can't be read is told to nobody but the shell
  strange  any
  phone    fail read /sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg eof
  send     adump=1 -> ADUMP:,OK
  phone    shell 1 -> 127 Read error, could not find file /sys/kernel/debug/asoc/msm8974-taiko-mtp-snd-card/taiko_codec/codec_reg

how it is asked for
  send     adump | adump=0 | adump?1 -> SYNTAX
  send     adump=? -> ADUMP:Dump audio registers,adump                                                       adump(),OK
