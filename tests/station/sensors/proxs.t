#: Drives the proximity sensor, the other half of the light and proximity chip.
#: proxs=0 | starts the sensor. Answers with one blank
#: proxs=1 | the reading in counts, started or not: `0x0025` with nothing near
#: proxs=2 | the reading if something is near, by the chip's line; `ERROR` if nothing is, or not started
#: proxs=3[,LOW[,HIGH[,PULSES[,GAIN[,DRIVE]]]]] | sets the thresholds beyond which something counts as near (0 to 65535
#:   counts), the pulses (0 to 255), the gain (0 to 3 are 1, 2, 4 and 8) and the drive (0 to 3 are 100, 50, 25 and
#:   12.5 mA, 4 to 7 a ninth of them); a gain or drive beyond has no effect. Then whether something is near, 1 or 0, and
#:   the reading
#: What fails is `ERROR` behind one blank; another action is `SYNTAX`.

the reading, before and behind a start
  send     proxs=1 -> PROXS:0x0000,OK
  send     proxs=3 -> PROXS:0,0x0000,OK
  send     proxs=2 -> PROXS: ,ERROR
  send     proxs=0 -> PROXS: ,OK
  # nothing near: what the window itself reflects
  send     proxs=1 -> PROXS:0x0025,OK
  # 5200000 / 150^2 + 37 = 268.1
  phone    near 150
  send     proxs?1 -> PROXS:0x010C,OK
  # clipped at 1023
  phone    near 50
  send     proxs=1 -> PROXS:0x03FF,OK
  phone    near none
  send     proxs=1 -> PROXS:0x0025,OK
  phone    files i2c ->

a start writes the table, the enable register last
  send     proxs=0 -> PROXS: ,OK
  send     i2cr=5,39,a0,10 -> I2CR:0x2d,0xff,0xff,0xff,0x00,0x00,0x00,0x00,0x00,0x00,0xf4,0x01,0x22,0x00,0x08,0x20,OK

what is near beyond the threshold of 500 is told by the line
  send     proxs=0 -> PROXS: ,OK
  send     proxs=2 -> PROXS: ,ERROR
  # 5200000 / 100^2 + 37 = 557
  phone    near 100
  send     proxs=2 | proxs=2,9,9,9,9 -> PROXS:0x22D,OK
  phone    i2c 5 39 08 -> 00
  phone    near 150
  send     proxs=2 -> PROXS: ,ERROR
  send     proxs=3 -> PROXS:0,0x010C,OK
  # a line that doesn't fall
  phone    near 100 | gpio 74 1
  send     proxs=3 -> PROXS:0,0x022D,OK

thresholds, pulses, gain and drive
  send     proxs=0 -> PROXS: ,OK
  phone    near 150
  # from 100 to 200
  #: A card is 150 mm away:
  send     proxs=3,100,200 -> PROXS:1,0x010C,OK
  phone    i2c 5 39 08 -> 64 | i2c 5 39 0A -> C8
  # 268.1 is within 0x104 and 0x10F; the bytes' order
  send     proxs=3,0x104,0x10F -> PROXS:0,0x010C,OK
  phone    i2c 5 39 09 -> 01 | i2c 5 39 08 -> 04
  # below the lower one
  send     proxs=3,0x10D,0x1FF -> PROXS:1,0x010C,OK
  # 16 pulses, twice the gain, half the drive
  send     proxs=3,0,1023,16,1,1 -> PROXS:0,0x0218,OK
  phone    i2c 5 39 0E -> 10 | i2c 5 39 0F -> 64 | i2c 5 39 0D -> 00
  # a ninth of the full drive: 557 / 9
  phone    near 100
  send     proxs=3,0,1023,8,0,4 -> PROXS:0,0x003E,OK
  phone    i2c 5 39 0F -> 20 | i2c 5 39 0D -> 01
  # 557 * 32 / 8 * 8 / 72
  send     proxs=3,0,1023,32,3,7 -> PROXS:0,0x00F8,OK
  phone    i2c 5 39 0F -> EC
  # gain 4 and drive 8 aren't any
  send     proxs=3,0,1023,32,4,8 -> PROXS:0,0x00F8,OK
  phone    i2c 5 39 0F -> EC | i2c 5 39 0D -> 01

light and proximity share a chip: who starts last rules, and lsen=0 ends both
  phone    near 100
  send     proxs=0 -> PROXS: ,OK
  send     proxs=3 -> PROXS:1,0x022D,OK
  send     lsen=1,0 -> LSEN:0x2CA,OK
  phone    i2c 5 39 00 -> 1B
  # only light is measured now: nothing new is seen near
  phone    near none
  send     proxs=1 -> PROXS:0x022D,OK
  send     proxs=0 -> PROXS: ,OK
  # the table of proximity has one cycle: 180 * 2.73 / 25.48 = 19.3. Then no light was measured any more
  phone    light 500
  send     lsen=1,0 -> LSEN:0x13,OK
  send     lsen=0 -> LSEN: ,OK
  phone    near 100
  send     proxs=3 -> PROXS:0,0x0025,OK

a bus that doesn't answer is an error
  phone    near 100 | fail i2c 5 39 0B all
  send     proxs=0 -> PROXS: ,ERROR
  phone    fail off
  send     proxs=0 -> PROXS: ,OK
  phone    fail i2c 5 39 18 all
  send     proxs=1 -> PROXS: ,ERROR
  send     proxs=3 -> PROXS:1,0x0000,OK
  phone    fail off | fail open /dev/i2c-5 all
  send     proxs=0 | proxs=1 | proxs=2 -> PROXS: ,ERROR
  send     proxs=3,1,2,3,1,1 -> PROXS:0,0x0000,OK

lines that are none, and the help
  send     proxs | proxs=4 | proxs=-1 | proxs=2,1,2,3,4,5 | proxs=3,1,2,3,4,5,6 -> PROXS: ,SYNTAX
  send     proxs=? -> PROXS:Tests the proximity sensor,
  +        proxs     (0-3)[,(0-0xFFFF),(0-0xFFFF),(0-0xFF),(0-0x3),(0-0xF)]test(act,p1,p2,p3,p4,p5,p6),OK
