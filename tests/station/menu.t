# The menu on the phone's own panel: what the power key and a finger do to scripts. The scripts tell what they
# see through the lights and through files.

the power key starts the script, and a second press stops it
  write    /system/scripts/start_korvat.lua qat("lctr=13,1,11,1")
  write    /system/scripts/stop.lua qat("lctr=13,1,22,1")
  phone    key 116 tap
  phone    clock +200
  file     /sys/class/leds/red/brightness -> 11
  phone    key 116 tap
  phone    clock +200
  file     /sys/class/leds/red/brightness -> 22
  phone    key 116 tap
  phone    clock +200
  file     /sys/class/leds/red/brightness -> 11

a command gives its status and its text, its lines joined
  write    /system/scripts/start_korvat.lua
  + local out = io.open("/data/out", "w")
  + \nfor _, line in ipairs({"case?", "nosuch", "case=1,2", "lctr=2,1", "lsot", "keyb=?", "dtst=4,2", ""}) do
  + \n  local status, text = qat(line)
  + \n  out:write(line, "|", status, "|", tostring(text), "\\n")
  + \nend
  + \nout:close()
  phone    key 116 tap
  phone    clock +300
  # the usage line of case=1,2 waits for the next command whose text is asked for
  file     /data/out -> case?|OK|CASE:false\nnosuch|NOT FOUND|nil\ncase=1,2|SYNTAX|nil\nlctr=2,1|ERROR|case      [(0,1)]                                           case(en)LCTR: \nlsot|OK|LSOT:0x0000\nkeyb=?|OK|KEYB:Key testkeyb      (0-3)                                             off,string,numeric,columms\ndtst=4,2|OK|DTST:3040,3041,3042,3043,3044\r\n3045,3046,3047,3048,3049\r\n3050,3051,3052,3053,3054\r\n\n|OK|nil\n

touches and keys reach the script, with actions of their own
  write    /system/scripts/start_korvat.lua
  + screen.init()
  + \nlocal out = io.open("/data/out", "w")
  + \nlocal root, c = canvas.new(), custom.new()
  + \ncustom.set_event_touch(c, function(x, y, a) out:write("t", x, ",", y, ",", a, " ") out:flush() end)
  + \ncustom.set_event_key(c, function(k, a) out:write("k", k, ",", a, " ") out:flush() end)
  + \ncanvas.add(root, c)
  + \ntaboret.push(root)
  + \nqat("dtch=3")
  phone    key 116 down
  phone    clock +100
  phone    key 116 up
  phone    clock +200
  # 2 is the press and 1 the release of a key, and the other way round of a touch
  file     /data/out -> k116,1\x20
  phone    key 114 down
  phone    clock +100
  phone    key 114 repeat
  phone    clock +100
  phone    key 114 up
  phone    clock +200
  file     /data/out -> k116,1 k114,2 k114,2 k114,1\x20
  phone    touch 30 40 down
  phone    clock +100
  phone    touch 31 41 up
  phone    clock +200
  file     /data/out -> k116,1 k114,2 k114,2 k114,1 t30,40,1 t31,41,2\x20
  # a trace tells of moves
  send     dtch=2
  expect   DTCH: ,OK
  phone    touch 50 60 down
  phone    clock +100
  phone    touch 51 61 move
  phone    clock +100
  file     /data/out -> k116,1 k114,2 k114,2 k114,1 t30,40,1 t31,41,2 t50,60,3 t51,61,3\x20

a button runs its handler at a press inside it, and nowhere else
  write    /system/scripts/start_korvat.lua
  + screen.init()
  + \nlocal root = canvas.new()
  + \nlocal b = button.new("x", function(me, x, y) qat("lctr=13,1," .. x .. ",1") qat("lctr=13,1," .. y .. ",3") end)
  + \ncanvas.set_position(b, 100, 200) canvas.set_size(b, 50, 40)
  + \ncanvas.add(root, b)
  + \ntaboret.push(root)
  + \nqat("dtch=3")
  phone    key 116 tap
  phone    clock +200
  phone    touch 99 200 tap
  phone    clock +200
  phone    touch 150 200 tap
  phone    clock +200
  phone    touch 100 240 tap
  phone    clock +200
  file     /sys/class/leds/red/brightness -> 0\n
  phone    touch 149 239 tap
  phone    clock +200
  file     /sys/class/leds/red/brightness  -> 149
  file     /sys/class/leds/blue/brightness -> 239

a held key that repeats is a further press
  write    /system/scripts/start_korvat.lua qat("lctr=13,1,11,1")
  write    /system/scripts/stop.lua qat("lctr=13,1,22,1")
  phone    key 116 down
  phone    clock +100
  phone    key 116 repeat
  phone    clock +200
  file     /sys/class/leds/red/brightness -> 22

without a start script a press changes nothing, and the third makes the next attempt
  conf     without /system/scripts/stop.lua
  phone    screen                  -> 1080x1920x32 page 0 unblanked
  strange  any

while the key test runs the power key belongs to it
  write    /system/scripts/start_korvat.lua qat("lctr=13,1,11,1")
  send     keyb=2
  expect   KEYB: ,OK
  phone    key 116 tap
  expect   KEYB:74,p
  expect   KEYB:74,r
  phone    clock +200
  file     /sys/class/leds/red/brightness -> 0\n
  send     keyb=0
  expect   KEYB: ,OK
  phone    key 116 tap
  phone    clock +200
  file     /sys/class/leds/red/brightness -> 11
