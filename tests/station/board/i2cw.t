#: Writes registers of any chip on the I2C buses.
#: i2cw=BUS,ADDR,REG[,DATA...] | all values hexadecimal: bus (this phone has 2, 4, 5 and A), chip address, first
#:   register, and the bytes that go into it and those behind it; at most 64 bytes with REG, what is more is dropped.
#:   REG alone sets the chip's pointer. Answers with an empty line, or with `no ack` and `ERROR` when the chip doesn't
#:   acknowledge; a bus that isn't there, or no REG, gives `ERROR` with no line
#: i2cw? | the help, whatever the values: only the form with `=` writes
# Raw writing to the I2C buses; all values are hexadecimal, the first byte is the register.

bytes go into the registers from the first on
  #:
  send     i2cw=5,18,38,11,22,33 -> I2CW:,OK
  phone    i2c 5 18 38 -> 11 | i2c 5 18 39 -> 22 | i2c 5 18 3A -> 33

a register alone sets the pointer
  phone    i2c 5 68 0F 03
  send     i2cw=5,68,f -> I2CW:,OK
  send     i2cr=5,68,ff -> I2CR:0x03,OK

at most 64 bytes are taken
  send     i2cw=4,49,0,1,2,3,4,5,6,7,8,9,a,b,c,d,e,f,10,11,12,13,14,15,16,17,18,19,1a,1b,1c,1d,1e,1f,20,21,
  +        22,23,24,25,26,27,28,29,2a,2b,2c,2d,2e,2f,30,31,32,33,34,35,36,37,38,39,3a,3b,3c,3d,3e,3f,40
  expect   I2CW:,OK
  phone    i2c 4 49 3E -> 3F | i2c 4 49 3F -> 00

the contactless chip acknowledges while its enable line is low
  # one byte is no frame of its
  strange  any
  send     i2cw=2,28,0 -> I2CW:no ack,ERROR
  phone    gpio 558 0
  send     i2cw=2,28,0 -> I2CW:,OK

no bytes, or no bus, give no line; no chip gives no ack
  send     i2cw=5,18 | i2cw=6,18,0 -> ERROR
  #: Nothing is at this address:
  send     i2cw=5,19,0 -> I2CW:no ack,ERROR
  strange  any

a register that fails is no acknowledge, and the bytes before it have arrived
  phone    fail i2c 4 49 39 1 | fail i2c 5 18 39 1
  send     i2cw=5,18,38,11,22,33 -> I2CW:no ack,ERROR
  phone    i2c 5 18 38 -> 11 | i2c 5 18 3A -> 00
  # the register of that number of another chip is another one
  send     i2cw=4,49,38,11,22,33 -> I2CW:no ack,ERROR

only the set form writes; the others are help
  send     i2cw?5,18,38,1 -> I2CW:write to any i2c device at specified address,OK
  phone    i2c 5 18 38 -> 00
  send     i2cw=? -> I2CW:write to any i2c device at specified address,
  +        i2cw      0xB,0xB,0xB[,BX]                                  i2cw(port,devaddr,reg,data...),OK
