#: Drives the receiver for digital television. `issl` selects a circuit before that.
#: isdb=0,1 | supplies the receiver and brings it up from its files; half a second. Always `OK`: a lock reading or
#:   `isdb=9` shows whether it runs
#: isdb=0,0 | takes the supply away
#: isdb=1,CHANNEL | tunes; `0x` and the channel. Circuits 2 and 3: 13 to 62; 5: 13 to 68; 0 and narrow 4: 0 to 32; 1: 0 to
#:   52; wide 4: 6, 13, 19, 26. Another channel or circuit is `ERROR` behind a text. Whether the channel came is told
#:   by the lock alone. A channel that isn't on the air takes 5.5 s
#: isdb=2,0 | the level: whole dBm, cut downwards, or on circuit 2 the byte, dBm + 256, in hexadecimal
#: isdb=5,VALUE | the amplifier, 0 to 4; nothing on this phone
#: isdb=6,0 | takes 128 packets of the stream: 0, or 1 when all were bad or the stream stopped; packets; bad packets
#: isdb=6,1 | the loop-back test; nothing on this phone
#: isdb=6,2[,RATE] | takes ten packets of the chip's test pattern at rate 0 to 3 (1): 0, or 1 unless all ten are right;
#:   packets; wrong packets. Tunes to channel 13 for it
#: isdb=7 | the chip's id, 0x52
#: isdb=8 | lock: 1 or 0, on circuit 3 the state; nothing on a path other than 0 and 1 of circuits 0, 1, 4 and 5
#: isdb=9[,X[,Y]] | the bus check: X and Y as bytes, 255, 0; `ERROR` while the chip isn't brought up
#: isdb=10,VALUE | the antenna switch, bits 0 to 2
#: isdb=11,KIND[,LAYER] | C/N in dB, the ratio of errors (KIND 0 bits, 1 packets), the state of the lock. The wide path of
#:   circuits 0, 1, 4 and 5 wants LAYER 0 to 3 and waits up to 3 s for a counter of layers 1 to 3; all others show what
#:   the narrow path's last measurement has left. `inf` and `nan` where nothing was counted
#: What can't be done is `ERROR` without a result line. Values behind the third are passed over.

power, a channel, its lock and level
  phone    broadcast 20 level -61.5
  #: The receiver is powered:
  send     isdb=0,1 -> ISDB:,OK
  send     issl=2,0 -> ISSL:,OK
  #: A channel is tuned, here on circuit 2:
  send     isdb=1,20 -> ISDB:0x14,OK
  #: Its lock:
  send     isdb=8 -> ISDB:1,OK
  # -61.5 + 256 = 194.5
  send     isdb=2,0 -> ISDB:0xc2,OK
  send     isdb=7 -> ISDB:0x52,OK
  send     issl=3,0 -> ISSL:,OK
  # the state of channel 13's keys, and 194 - 256
  send     isdb=8 -> ISDB:9,OK
  send     isdb=2,0 -> ISDB:-62,OK
  phone    broadcast 20 off
  send     isdb=8 -> ISDB:1,OK
  send     isdb=0,0 -> ISDB:,OK
  phone    gpio 561 -> 0 | gpio 13 -> 0 | gpio 14 -> 0
  send     isdb=8 -> ISDB:0,OK
  phone    files i2c ->

a level up to 128 is shown as it is, above it as its distance from 256
  send     isdb=0,1 -> ISDB:,OK
  phone    i2c 4 68 D7 80
  send     isdb=2,0 -> ISDB:128,OK
  phone    i2c 4 68 D7 C8
  send     isdb=2,0 -> ISDB:-56,OK
  send     isdb=2 | isdb=2,1 -> ERROR

each circuit gets its lock where the broadcast has its state
  send     isdb=0,1 -> ISDB:,OK
  send     issl=5,0 -> ISSL:,OK
  send     isdb=1,27 -> ISDB:0x1b,OK
  send     isdb=8 -> ISDB:1,OK
  send     issl=5,1 -> ISSL:,OK
  send     isdb=1,27 -> ISDB:0x1b,OK
  send     isdb=8 -> ISDB:1,OK
  phone    i2c 4 69 95 -> 01 | i2c 4 6A 87 -> B5
  phone    broadcast 27 state 10 4
  send     isdb=8 -> ISDB:0,OK
  send     issl=4,0 -> ISSL:,OK
  send     isdb=1,19 -> ISDB:0x13,OK
  send     isdb=8 -> ISDB:1,OK
  phone    i2c 4 69 ED -> 0C
  send     issl=1,1 -> ISSL:,OK
  send     isdb=1,19 -> ISDB:0x13,OK
  send     isdb=8 -> ISDB:1,OK
  phone    i2c 4 69 ED -> 4D
  send     issl=5,7 -> ERROR
  send     isdb=8 -> OK
  # no path is read, and so no state
  send     issl=2,7 -> ISSL:,OK
  send     isdb=8 -> ISDB:0,OK

the channels that a circuit reaches end where they end
  send     isdb=1,13 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     issl=2 -> ISSL:,OK
  send     isdb=1,12 | isdb=1,63 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     isdb=1,13,1,2,3 -> ISDB:0xd,OK
  send     issl=0,1 -> ISSL:,OK
  send     isdb=1,0 -> ISDB:0x0,OK
  send     isdb=1,33 | isdb=1 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     issl=1,0 -> ISSL:,OK
  send     isdb=1,52 -> ISDB:0x34,OK
  send     isdb=1,53 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     issl=4,0 -> ISSL:,OK
  send     isdb=1,7 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     isdb=1,6 -> ISDB:0x6,OK
  send     isdb=1,13 -> ISDB:0xd,OK
  send     isdb=1,26 -> ISDB:0x1a,OK
  send     isdb=1,32 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     issl=4,1 -> ISSL:,OK
  send     isdb=1,7 -> ISDB:0x7,OK
  send     isdb=1,32 -> ISDB:0x20,OK
  send     isdb=1,33 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     issl=5,1 -> ISSL:,OK
  send     isdb=1,68 -> ISDB:0x44,OK
  send     isdb=1,69 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     issl=5,0 -> ISSL:,OK
  send     isdb=1,12 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     isdb=1,68 -> ISDB:0x44,OK
  send     issl=3 -> ISSL:,OK
  send     isdb=1,62 -> ISDB:0x3e,OK
  send     isdb=1,63 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     issl=1,1 -> ISSL:,OK
  send     isdb=1,52 -> ISDB:0x34,OK
  send     isdb=1,53 -> ISDB:ISDB-T Chip is not selected yet,ERROR
  send     issl=0,0 -> ISSL:,OK
  send     isdb=1,32 -> ISDB:0x20,OK
  send     isdb=1,33 -> ISDB:ISDB-T Chip is not selected yet,ERROR

what isn't known is an error without a text, and the help
  send     isdb | isdb=0 | isdb=0,2 | isdb=3,0 | isdb=4,0 -> ERROR
  send     isdb=5,4 -> ISDB:,OK
  send     isdb=5,5 -> ERROR
  send     isdb=6,1 -> ISDB:,OK
  send     isdb=6,3 | isdb=10,8 | isdb=11,2 | isdb=12 -> ERROR
  send     isdb? -> ISDB:,ERROR
  send     isdb=? -> ISDB:ISDB command test,isdb      [(0-11)[,(0-2)][,[(0,1)][(0x1-0xFFFF)]]]          isdb(),OK

the antenna switch has a line for each bit
  send     isdb=10,5 -> ISDB:,OK
  phone    gpio 565 -> 1 | gpio 564 -> 0 | gpio 567 -> 1
  send     isdb=10,2 -> ISDB:,OK
  phone    gpio 565 -> 0 | gpio 564 -> 1 | gpio 567 -> 0
  phone    fail write /dev/gpio567 1
  send     isdb=10,7 -> ERROR
  phone    gpio 565 -> 1

the bus check takes its bytes as they are, of a chip that was brought up
  send     isdb=9,1,2 -> ERROR
  send     isdb=0,1 -> ISDB:,OK
  phone    i2c 4 69 DC FF | i2c 4 69 DD FF
  send     isdb=9,258,7 -> ISDB:2,7,255,0,OK
  phone    i2c 4 69 DC -> 00 | i2c 4 69 DD -> 00
  send     isdb=9 -> ISDB:255,255,255,0,OK

a bring-up writes the files, the fixed settings and the event
  phone    i2c 4 68 95 -> 00
  send     isdb=0,1 -> ISDB:,OK
  # clocks: 7, 7, 57, 16, 18, 20, 33, 3
  phone    i2c 4 68 32 -> 07 | i2c 4 68 6D -> 07 | i2c 4 68 6E -> 39 | i2c 4 68 4C -> 10
  phone    i2c 4 68 94 -> 12 | i2c 4 68 95 -> 14 | i2c 4 68 30 -> 21 | i2c 4 68 97 -> 03
  # programs run, the last byte of each patch has come
  phone    i2c 4 68 F2 -> 03 | i2c 4 69 F2 -> 03 | i2c 4 68 F3 -> 02 | i2c 4 69 F3 -> 02
  phone    i2c 4 68 F4 -> 27 | i2c 4 68 F5 -> 00 | i2c 4 69 F4 -> 1F | i2c 4 69 F5 -> 00
  # a line of each register file, in each spelling
  phone    i2c 4 69 15 -> 1E | i2c 4 69 14 -> 6B | i2c 4 69 22 -> 88 | i2c 4 6A 42 -> 77
  phone    i2c 4 68 0B -> 4F | i2c 4 68 8C -> D3
  # the stream output, the event: bit 0, parameter 2 in bits 3 to 5
  phone    i2c 4 69 D6 -> 8E | i2c 4 69 DE -> 01 | i2c 4 69 DA -> 10 | gpio 561 -> 1

a tuning of the narrow path leaves what the table says in the chip
  write    /system/etc/isdbtmm/MN88552_chfile_20130301_Tmm.csv // one\nUS,20,515.142857,-57,1b,2c,3d,03,04,02,40,4b,12\n
  send     isdb=0,1 -> ISDB:,OK
  phone    i2c 4 6A 0A 0F | i2c 4 68 75 F0 | i2c 4 69 00 02 | i2c 4 68 BA FF
  send     issl=5,1 -> ISSL:,OK
  phone    broadcast 20
  send     isdb=1,20 -> ISDB:0x14,OK
  # clock: 0xB36E8F; shift: 0x052
  phone    i2c 4 6A 0C -> B3 | i2c 4 6A 0D -> 6E | i2c 4 6A 0E -> 8F | i2c 4 6A 09 -> 05
  phone    i2c 4 6A 0A -> 2F | i2c 4 69 00 -> 01 | i2c 4 6A F2 -> 12
  # synthesiser: 0x1B and 0xB15AA
  phone    i2c 4 68 74 -> 1B | i2c 4 68 75 -> FB | i2c 4 68 76 -> 15 | i2c 4 68 77 -> AA
  phone    i2c 4 69 ED -> 4B | i2c 4 68 C8 -> 1B | i2c 4 68 C9 -> 2C | i2c 4 68 CA -> 3D
  phone    i2c 4 68 CB -> 03 | i2c 4 68 78 -> 40
  # 515 is 0x80 and 3; the third option in its low six bits
  phone    i2c 4 68 CC -> 80 | i2c 4 68 CD -> C4 | i2c 4 68 CE -> C2 | i2c 4 68 BA -> 0F
  send     isdb=8 -> ISDB:1,OK
  # a channel that the table lacks: the tuner stays where it is
  send     isdb=1,21 -> ISDB:0x15,OK
  phone    i2c 4 68 CC -> 80

the channel table is computed and dumped, up to the line that isn't one
  write    /system/etc/isdbtmm/MN88552_chfile_20130301_Tmm.csv // comment\nUF,0,473.142857,500,1a,2b,3c,5,4,0,40,a,11\n
  +        uf,1,1,1,1,1,1,1,1,1,1,1,1\nUS,20,515.142857,-57,1b,2c,3d,3,4,2,40,4b,12\n
  +        VMF,0,431.9,0,1,2,3,f,4,1,0,c,13\nD,5,100.5,-286,1,2,3,c,6,0,c0,ff,113\nK,7,432.0,300,1,2,3,1b,5,1,0,20,14\n
  +        UF,2,500,0,1,2,3\nUF,3,473,0,1,1,1,1,1,1,1,1,1\n
  send     isdb=0,1 -> ISDB:,OK
  file     /system/etc/isdbtmm/chtbl_dump.csv -> // BAND,ch,fRF,fIF,ADCLK,P_M,P_KU,P_KM,P_KL,TNCOP1,TNCOP2,TNCOP3,FADU,FADM,FADL,
  +        NCOFRQU,NCOFRQM,NCOFRQL,SYSSET,CKRAT,,,TNCOP4,TNCOP6,TNCOP7,ADCLKSEL,NBUF,FSFT*\n
  +        UF,0,473.143,500,184.140,19,07,6F,49,1A,2B,3C,B5,43,48,00,0D,38,0A,11,,,05,04,00,40,01\n
  +        US,20,515.143,-57,182.280,1B,0B,15,AA,1B,2C,3D,B3,6E,8F,05,02,00,4B,12,,,03,04,02,40,01\n
  +        VMF,0,431.900,0,0.000,17,03,86,E1,01,02,03,00,00,00,00,00,00,0C,13,,,0F,07,01,00,02\n
  +        D,5,100.500,-286,197.160,56,03,4A,1A,01,02,03,AC,83,D7,00,01,7C,FF,113,,,0C,06,00,C0,08,1154\n
  +        K,7,432.000,300,0.000,0B,09,EF,7B,01,02,03,00,00,00,00,0E,6F,20,14,,,1B,05,01,00,01,1B85\n
  # with the warning of the table the chip runs, and its stream output isn't set
  phone    i2c 4 69 D6 -> 00
  send     isdb=9 -> ISDB:255,255,255,0,OK

a chip that doesn't start is powered all the same, and can be started again
  phone    speed 10 | tuner noload
  send     isdb=0,1 -> ISDB:,OK
  send     isdb=9 -> ERROR
  phone    gpio 561 -> 1
  phone    tuner badrom
  send     isdb=0,1 -> ISDB:,OK
  send     isdb=9 -> ERROR
  phone    tuner nocal
  send     isdb=0,1 -> ISDB:,OK
  send     isdb=9 -> ERROR
  phone    tuner good
  send     isdb=0,1 -> ISDB:,OK
  send     isdb=9 -> ISDB:255,255,255,0,OK
  phone    tuner nosettle
  send     issl=2,0 -> ISSL:,OK
  send     isdb=1,13 -> ISDB:0xd,OK
  send     isdb=8 -> ISDB:0,OK
  phone    tuner good
  send     isdb=1,13 -> ISDB:0xd,OK
  send     isdb=8 -> ISDB:1,OK

files that are missing or wrong are passed over, a patch that the chip takes for damaged isn't
  write    /system/etc/isdbtmm/MN88552_RF_20121108.rgs \*256{R,0,86,1\n}
  write    /system/etc/isdbtmm/PSEQ1_MN88552_130129_bprty.hex stad:0\nff:\nstad:1\nprty:0\n
  send     isdb=0,1 -> ISDB:,OK
  phone    i2c 4 68 86 -> 00 | i2c 4 69 F6 -> 00 | i2c 4 69 D6 -> 00
  send     isdb=9 -> ISDB:255,255,255,0,OK
  write    /system/etc/isdbtmm/MN88552_RF_20121108.rgs \*255{R,0,86,1\n}
  write    /system/etc/isdbtmm/PSEQ1_MN88552_130129_bprty.hex stad:1234\n 7f:\n 01\n03 :\nprty:0\nstad:0\nff:\n
  send     isdb=0,1 -> ISDB:,OK
  phone    i2c 4 68 86 -> 01
  # 0x12 in the low five bits; 7 + 1 + 2 ones
  phone    i2c 4 69 F4 -> 12 | i2c 4 69 F5 -> 34 | i2c 4 69 F6 -> 03 | i2c 4 69 D6 -> 8E
  write    /system/etc/isdbtmm/PSEQ1_MN88552_130129_bprty.hex stad:1234\n 7f:\nprty:0\n
  send     isdb=0,1 -> ISDB:,OK
  send     isdb=9 -> ERROR

without the old driver's node it works as well
  conf     without /dev/mmtuner
  conf     without /system/etc/isdbtmm/MN88552_chfile_20130301_Tmm.csv
  strange  any
  send     isdb=0,1 -> ISDB:,OK
  send     isdb=9 -> ISDB:255,255,255,0,OK

the stream test counts what comes and what is bad
  send     isdb=0,1 -> ISDB:,OK
  send     issl=2,0 -> ISSL:,OK
  send     isdb=1,13 -> ISDB:0xd,OK
  #: The stream of a channel that is tuned:
  send     isdb=6,0 -> ISDB:0,128,0,OK
  phone    stream -> source 0 buffer 37600 filter 0x2000 0 3 20 0 18800 starts 1 stops 1 packets 128
  phone    stream error 3 | stream good | stream nosync 2 | stream overflow 10 | stream event 16
  send     isdb=6,0 -> ISDB:0,128,5,OK
  phone    stream error all
  send     isdb=6,0 -> ISDB:1,128,128,OK
  phone    stream good all | stream error 127
  send     isdb=6,0 -> ISDB:0,128,127,OK

a stream that stops ends its test with what was counted, and nothing stays open
  conf     stream nosync
  conf     stream good 2
  conf     stream overflow 11
  send     isdb=0,1 -> ISDB:,OK
  send     issl=2,0 -> ISSL:,OK
  send     isdb=1,13 -> ISDB:0xd,OK
  send     isdb=6,0 -> ISDB:1,3,1,OK
  phone    stream -> source 0 buffer 37600 filter 0x2000 0 3 20 0 18800 starts 1 stops 1 packets 3
  phone    stream short
  send     isdb=6,0 -> ISDB:1,0,0,OK
  phone    stream good 5 | stream broken
  send     isdb=6,0 -> ISDB:1,5,0,OK
  phone    stream event 5
  send     isdb=6,0 -> ISDB:1,0,0,OK
  phone    fail ioctl /dev/dvb/adapter0/demux0 1
  send     isdb=6,0 -> ISDB:1,0,0,OK
  # nothing on the air: ten seconds for the first packet
  phone    broadcast off | speed 100
  send     isdb=6,0 -> ISDB:1,0,0,OK
  phone    stream -> source 0 buffer 37600 filter 0x2000 0 3 20 0 18800 starts 1 stops 1 packets 0
  phone    files demux ->

a phone without a demultiplexer has no stream
  conf     without /dev/dvb/adapter0/demux0
  strange  any
  send     isdb=6,0 -> ISDB:1,0,0,OK

the pattern test wants ten packets that are right
  send     isdb=0,1 -> ISDB:,OK
  phone    i2c 4 6A E8 FF | i2c 4 6A F8 FF | i2c 4 69 37 FF | i2c 4 68 AC 01
  #: The chip's own pattern:
  send     isdb=6,2 -> ISDB:0,10,0,OK
  phone    stream -> source 0 buffer 37600 filter 0x2000 0 3 20 0 18800 starts 1 stops 1 packets 10
  # narrow: the low four bits; 6 and 7 of the record are the low two
  phone    i2c 4 6A E8 -> F0 | i2c 4 6A F8 -> FC | i2c 4 69 D6 -> 80 | i2c 4 69 37 -> F1
  phone    i2c 4 68 AC -> 05
  # rate 1, on; and the synthesiser and clock of the test
  phone    i2c 4 69 E7 -> 05 | i2c 4 69 08 -> 01 | i2c 4 68 72 -> 1B | i2c 4 68 73 -> 49
  phone    i2c 4 68 2D -> 03 | i2c 4 69 0D -> 85 | i2c 4 69 0E -> A8 | i2c 4 69 0F -> 8F
  phone    stream good 2 | stream differ | stream nosync
  send     isdb=6,2,3 -> ISDB:1,10,2,OK
  phone    i2c 4 69 E7 -> 0D
  phone    stream filler 20 | stream overflow 10
  send     isdb=6,2,0 -> ISDB:0,10,0,OK
  phone    i2c 4 69 E7 -> 01
  phone    stream filler 21
  send     isdb=6,2,4 -> ISDB:1,10,1,OK
  phone    i2c 4 69 E7 -> 05

a pattern that stops ends its test, and bit 7 of its register is off again
  phone    speed 10
  send     isdb=0,1 -> ISDB:,OK
  phone    stream good 4 | stream broken
  send     isdb=6,2 -> ISDB:1,4,0,OK
  phone    stream overflow 11
  send     isdb=6,2 -> ISDB:1,0,0,OK
  phone    stream event 3
  send     isdb=6,2 -> ISDB:1,0,0,OK
  phone    stream -> source 0 buffer 37600 filter 0x2000 0 3 20 0 18800 starts 1 stops 1 packets 0
  phone    fail open /dev/dvb/adapter0/demux0 1
  send     isdb=6,2 -> ISDB:1,0,0,OK
  # not brought up, so that the register stays what it was but for the bit
  phone    i2c 4 69 E7 FF
  send     isdb=0,0 -> ISDB:,OK
  send     isdb=6,2 -> ISDB:1,0,0,OK
  phone    files demux ->

error rates of the wide path by kind and layer
  send     isdb=0,1 -> ISDB:,OK
  send     issl=5,0 -> ISSL:,OK
  send     isdb=1,27 -> ISDB:0x1b,OK
  # 10 log10(65536 / 2105) + 2; 3, 40 and 517 of 250 * 203 * 8
  #: C/N, ratio of bit errors in layer A, state of the lock:
  send     isdb=11,0,1 -> ISDB:16.932278,0.000007,10,OK
  send     isdb=11,0,2 -> ISDB:16.932278,0.000099,10,OK
  send     isdb=11,0,3 -> ISDB:16.932278,0.001273,10,OK
  phone    i2c 4 69 8B -> 19 | i2c 4 69 90 -> 07
  # 1, 8 and 77 of 250
  send     isdb=11,1,1 -> ISDB:16.932278,0.004000,10,OK
  send     isdb=11,1,2 -> ISDB:16.932278,0.032000,10,OK
  send     isdb=11,1,3 -> ISDB:16.932278,0.308000,10,OK
  phone    i2c 4 69 8B -> 39
  # layer 0 doesn't wait
  phone    i2c 4 69 C8 7D
  send     isdb=11,1,0 -> ISDB:16.932278,0.616000,10,OK
  # a counter that doesn't come
  phone    broadcast off | i2c 4 69 C3 00 | i2c 4 69 93 FF | i2c 4 6A 85 FF | speed 100
  send     isdb=11,1,3 -> ISDB:16.932278,0.616000,1,OK
  phone    i2c 4 69 93 -> 7F | i2c 4 6A 85 -> 7F
  phone    i2c 4 69 C7 00 | i2c 4 69 C8 00
  send     isdb=11,1,0 -> ISDB:16.932278,inf,1,OK

error rates of the narrow path are those that the measurement before has left
  send     isdb=0,1 -> ISDB:,OK
  send     issl=5,1 -> ISSL:,OK
  send     isdb=1,27 -> ISDB:0x1b,OK
  phone    clock hold
  # 10 log10(1024 / 33) + 2.3; the first measurement had 3 bits in 250
  send     isdb=11,1 -> ISDB:17.217860,0.012000,5,OK
  phone    i2c 4 6A 80 -> 10
  phone    clock +101
  send     isdb=11,1,0 -> ISDB:17.217860,0.004000,5,OK
  phone    i2c 4 6A 85 FF | i2c 4 69 93 FF
  send     isdb=11,0 -> ISDB:17.217860,0.000002,5,OK
  phone    i2c 4 6A 80 -> 00 | i2c 4 6A 85 -> 80 | i2c 4 69 93 -> 80
  phone    broadcast 27 off | i2c 4 6A AC 00 | i2c 4 6A AD 00 | i2c 4 6A B1 00 | i2c 4 6A B2 00
  phone    i2c 4 6A B3 00
  send     isdb=11,0 -> ISDB:inf,nan,0,OK
  phone    i2c 4 6A 85 FF | i2c 4 69 93 FF
  send     isdb=11,1 -> ISDB:inf,nan,0,OK
  phone    i2c 4 6A 85 -> 00 | i2c 4 69 93 -> 00
  phone    clock run
