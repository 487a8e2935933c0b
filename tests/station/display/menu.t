# The menu on the phone's own panel: what the power key and a finger do to scripts. The scripts tell what they
# see through the lights and through files.

the shipped menu: a page, a command that is well and one that fails, back, and an end in the dark
  phone    key 116 tap | clock +140 | idle
  # "Lights", the fifth row of 144 + 16 pixels below the bar; "Red"; the stem of the l of "lctr=13,..."
  phone    touch 300 850 tap | clock +140 | idle | touch 216 186 tap | clock +140 | idle
  file     /sys/class/leds/red/brightness -> 255
  phone    pixel 45 1110 -> 007A33
  phone    fail write /sys/class/leds/red/brightness | touch 216 186 tap | clock +140 | idle
  phone    pixel 45 1110 -> C00000
  phone    touch 500 1834 tap | clock +140 | idle
  # here the first page has its seventh button, "Sensors"
  phone    pixel 45 1110 -> FFFFFF
  phone    key 116 tap | clock +140 | idle | pixel 45 1110 -> 000000
  # closed with the menu: the next one opens it anew
  phone    kmsg -> Korvat HVT is starting up...\nphone: wcnss: calibration korvat_sella_WCNSS_qcom_wlan_nv.bin

a command gives its status and its text, its lines joined
  write    /system/scripts/start_korvat.lua local out = io.open("/data/out", "w")
  + \nfor _, line in ipairs({"case?", "nosuch", "case=1,2", "lctr=2,1", "lsot", "keyb=?", "dtst=4,2", ""}) do
  + \n  local status, text = qat(line)
  + \n  out:write(line, "|", status, "|", tostring(text), "\\n")
  + \nend
  + \nout:close()
  phone    key 116 tap | clock +140 | idle
  # lsot waits 5 ms for each of three LEDs
  phone    clock +140 | idle
  # the usage line of case=1,2 waits for the next command whose text is asked for
  file     /data/out -> case?|OK|CASE:false\nnosuch|NOT FOUND|nil\ncase=1,2|SYNTAX|nil\nlctr=2,1|ERROR|case      [(0,1)]                                           case(en)LCTR: \nlsot|OK|LSOT:0x0000\nkeyb=?|OK|KEYB:Key testkeyb      (0-3)                                             off,string,numeric,columms\ndtst=4,2|OK|DTST:3040,3041,3042,3043,3044\r\n3045,3046,3047,3048,3049\r\n3050,3051,3052,3053,3054\r\n\n|OK|nil\n

keys and touches reach the script with actions of their own, wherever they fall
  write    /system/scripts/start_korvat.lua screen.init()
  + \nlocal out = io.open("/data/out", "w")
  + \nlocal root, c = canvas.new(), custom.new()
  + \ncustom.set_event_touch(c, function(x, y, a) out:write("t", x, ",", y, ",", a, " ") out:flush() end)
  + \ncustom.set_event_key(c, function(k, a) out:write("k", k, ",", a, " ") out:flush() end)
  + \ncanvas.add(root, c)
  + \ncanvas.add(root, button.new("never", function() out:write("b ") end))
  + \ntaboret.push(root)
  + \nqat("dtch=3")
  phone    key 116 down | clock +140 | idle
  # 2 is the press and 1 the release of a key, and the other way round of a touch
  phone    key 116 up | key 114 down | key 114 repeat | key 114 up | clock +140 | idle
  # the custom widget is 480 rows high, and the finger is on the button below it
  phone    touch 30 510 down | clock +140 | idle | touch 31 511 up | clock +140 | idle
  file     /data/out -> k116,1 k114,2 k114,2 k114,1 t30,510,1 t31,511,2\x20

what waits for more than five seconds is dropped
  write    /system/scripts/start_korvat.lua local root, c = canvas.new(), custom.new()
  + \nlocal out = io.open("/data/out", "w")
  + \ncustom.set_event_key(c, function(k, a)
  + \n  out:write(k, ",", a, " ") out:flush()
  + \n  while k == 114 and a == 2 and not io.open("/data/go") do end
  + \nend)
  + \ncanvas.add(root, c)
  + \ntaboret.push(root)
  phone    key 116 down | clock +140 | idle | clock hold | key 114 down | clock +40 | key 115 down
  # 115 is to be 6.02 seconds old, 212 4.92
  phone    clock +1100 | key 212 down | clock +4920
  write    /data/go 1
  phone    clock run | idle
  file     /data/out -> 114,2 212,2\x20

a button runs its handler at a press inside it; an error there ends the menu, and the next key press starts anew
  write    /system/scripts/start_korvat.lua -- start
  + \nscreen.init()
  + \nqat("lctr=13,1,11")
  + \nlocal root = canvas.new()
  + \nlocal function add(x, handler)
  + \n  local b = button.new("x", handler)
  + \n  canvas.set_position(b, x, 200) canvas.set_size(b, 50, 40)
  + \n  canvas.add(root, b)
  + \nend
  + \nadd(100, function(me, x, y) qat("lctr=13,1," .. x .. ",1") qat("lctr=13,1," .. y .. ",3") end)
  + \nadd(100, function() qat("lctr=13,1,7,2") end)
  + \nadd(400, function() error("boom") end)
  + \ntaboret.push(root)
  + \nqat("dtch=3")
  phone    key 116 tap | clock +140 | idle | touch 150 200 tap | clock +140 | idle
  phone    touch 100 240 tap | clock +140 | idle
  file     /sys/class/leds/red/brightness -> 11
  phone    touch 149 239 tap | clock +140 | idle
  file     /sys/class/leds/red/brightness  -> 149
  file     /sys/class/leds/blue/brightness -> 239
  # the button that was added first has it alone
  file     /sys/class/leds/green/brightness -> 11
  phone    touch 400 200 tap | clock +140 | idle
  phone    kmsg -> Korvat HVT is starting up...\nphone: wcnss: calibration korvat_sella_WCNSS_qcom_wlan_nv.bin\nQAT: luigi: /system/scripts/start_korvat.lua:12: boom
  phone    key 116 tap | clock +140 | idle
  file     /sys/class/leds/red/brightness  -> 11

without a start script a press changes nothing, and the third one tries again
  conf     without /system/scripts/start_korvat.lua
  write    /system/scripts/stop.lua qat("lctr=13,1,22,1")
  send     lcdl=1,0 -> LCDL: ,OK
  send     dclr=0,1,2,3 -> DCLR: ,OK
  phone    key 116 tap | clock +140 | idle
  phone    kmsg -> Korvat HVT is starting up...\nphone: wcnss: calibration korvat_sella_WCNSS_qcom_wlan_nv.bin\nQAT: luigi: cannot open /system/scripts/start_korvat.lua: No such file or directory
  phone    key 116 tap | clock +140 | idle
  phone    kmsg -> Korvat HVT is starting up...\nphone: wcnss: calibration korvat_sella_WCNSS_qcom_wlan_nv.bin\nQAT: luigi: cannot open /system/scripts/start_korvat.lua: No such file or directory
  file     /sys/class/leds/red/brightness -> 0\n
  phone    key 116 tap | clock +140 | idle
  phone    kmsg 2                  -> QAT: luigi: cannot open /system/scripts/start_korvat.lua: No such file or directory\n
  +        QAT: luigi: cannot open /system/scripts/start_korvat.lua: No such file or directory
  phone    pixel 30 60 -> 010203

settings of phone.conf stand behind those of the board: another script starts, without a padding
  conf     setting luigi canvas_padding 0
  conf     setting luigi start_key /data/mine.lua
  conf     setting luigi start_key 7
  conf     setting luigi canvas_padding wide
  conf     setting nobody listens 4294967295
  write    /data/mine.lua screen.init()
  + \nlocal root, l = canvas.new(), label.new("x")
  + \ncanvas.set_back_color(l, 0xFF0000) canvas.set_border_color(l, 0xFF0000)
  + \ncanvas.add(root, l)
  + \ntaboret.push(root)
  phone    kmsg 3                  -> QAT: setting luigi start_key wants a text\n
  + QAT: setting luigi canvas_padding wants a number\n
  + phone: wcnss: calibration korvat_sella_WCNSS_qcom_wlan_nv.bin
  phone    key 116 tap | clock +140 | idle | pixel 2 2 -> FF0000

a start script that fails leaves the panel as it was
  send     lcdl=1,0 -> LCDL: ,OK
  send     dclr=0,17,34,51 -> DCLR: ,OK
  write    /system/scripts/start_korvat.lua error("gr\xC3\xBCn")
  phone    key 116 tap | clock +140 | idle | pixel 45 24 -> 112233
  phone    kmsg 1 -> QAT: luigi: /system/scripts/start_korvat.lua:1: gr\\xC3\\xBCn

a script that doesn't compile, never stops calling itself or takes too much memory is told where
  write    /system/scripts/start_korvat.lua this is no script
  phone    key 116 tap | clock +140 | idle | key 116 tap | clock +140
  write    /system/scripts/start_korvat.lua local function f() return 1 + f() end f()
  phone    key 116 tap | clock +140 | idle | key 116 tap | clock +140
  write    /system/scripts/start_korvat.lua local s\ns = ("x"):rep(2e8)
  phone    key 116 tap | clock +140 | idle
  phone    kmsg 3                  -> QAT: luigi: /system/scripts/start_korvat.lua:1: syntax error near 'is'\n
  +        QAT: luigi: /system/scripts/start_korvat.lua:1: stack overflow\n
  +        QAT: luigi: /system/scripts/start_korvat.lua:2: not enough memory

while the key test runs the power key belongs to it
  write    /system/scripts/start_korvat.lua qat("lctr=13,1,11,1")
  send     keyb=2 -> KEYB: ,OK
  phone    key 116 tap
  expect   KEYB:74,p
  expect   KEYB:74,r
  phone    clock +140 | idle
  file     /sys/class/leds/red/brightness -> 0\n

a start script that never returns doesn't hold the console, and the power key ends it in the end
  write    /system/scripts/start_korvat.lua while true do pcall(function() while true do end end) end
  phone    key 116 tap | clock +40
  send     case? -> CASE:false,OK
  phone    key 116 tap | clock +40 | speed 1000
  awaits   kmsg                    -> Korvat HVT is starting up...\nphone: wcnss: calibration korvat_sella_WCNSS_qcom_wlan_nv.bin\nQAT: luigi: /system/scripts/start_korvat.lua:1: the script doesn't return, and the menu was to stop
  phone    speed 1

a stop waits for a handler that computes; one that neither returns nor finishes a command for a minute is ended
  write    /system/scripts/start_korvat.lua qat("lctr=13,1,5,1") qat("lctr=13,1,5,2")
  + \nlocal root, c = canvas.new(), custom.new()
  + \ncustom.set_event_key(c, function(k, a)
  + \n  if k == 115 then qat("lctr=13,1,99,2") end
  + \n  if k ~= 114 or a ~= 2 then return end
  + \n  while not io.open("/data/go") do for _ = 1, 1e5 do end end
  + \n  qat("lctr=13,1,11,1")
  + \n  while not io.open("/data/end") do for _ = 1, 1e5 do end end
  + \nend)
  + \ncanvas.add(root, c)
  + \ntaboret.push(root)
  write    /system/scripts/stop.lua qat("lctr=13,1,22,3")
  phone    key 116 tap | clock +140 | idle | clock hold | key 114 tap | clock +40 | key 116 tap
  phone    key 115 down | clock +40 | idle | clock +59000 | idle
  file     /sys/class/leds/blue/brightness  -> 0\n
  # the command in between counts
  write    /data/go 1
  phone    idle
  file     /sys/class/leds/red/brightness   -> 11
  phone    clock +59000 | idle
  file     /sys/class/leds/blue/brightness  -> 0\n
  phone    clock +2000 | idle
  file     /sys/class/leds/blue/brightness  -> 22
  # what came behind the stop has no menu left
  file     /sys/class/leds/green/brightness -> 5
  phone    kmsg 1 -> QAT: luigi: /system/scripts/start_korvat.lua:8: the script doesn't return, and the menu was to stop
  # the next press starts anew
  write    /data/end 1
  phone    key 116 tap | clock +60 | idle
  file     /sys/class/leds/red/brightness   -> 5
  phone    key 114 tap | clock +40 | idle
  file     /sys/class/leds/red/brightness   -> 11

what a script prints is in the kernel log of this phone, and nowhere else; its first argument is a text
  write    /system/scripts/start_korvat.lua screen.init()
  + \nprint("here", 2.5, nil, true, canvas)
  + \nprint("two\\nlines")
  + \nprint(2)
  phone    key 116 tap | clock +140 | idle
  phone    kmsg 3 -> phone: print: here\\t2.5\\tnil\\ttrue\\ttable\nphone: print: two\\nlines\nQAT: luigi: /system/scripts/start_korvat.lua:4: bad argument #1 to 'print' (string expected, got number)

a mistake in a call of the menu's building blocks is told at the author's own line
  write    /system/scripts/start_korvat.lua local menu = dofile(luigi_scripts_path .. "hvt_menu.lua")
  + \nlocal function try(f, ...) print((select(2, pcall(f, ...)):gsub("^.*/", ""))) end
  + \ntry(function() menu.show("early", true, "") end)
  + \ntry(function()
  + \n  menu.page("Mine", { { "Fine", "batc=1" }, { "Bare" } })
  + \nend)
  + \nmenu.start(menu.page("Mine", { { "Wrong", function()
  + \n  menu.show("OK", true, 5)
  + \nend } }))
  phone    key 116 tap | clock +140 | idle | touch 216 250 tap | clock +140 | idle
  phone    kmsg 3                  -> phone: print: start_korvat.lua:3: menu: show before menu.start\n
  +        phone: print: start_korvat.lua:5: menu: page "Mine": item 2, "Bare", wants a command, a function or a page, not nil\n
  +        QAT: luigi: /system/scripts/start_korvat.lua:8: menu: show(status, good, text) wants a text, not number

a caption and a title that are too long are cut where the button ends
  write    /system/scripts/start_korvat.lua local menu = dofile(luigi_scripts_path .. "hvt_menu.lua")
  + \nlocal seen = label.new
  + \nlabel.new = function(t) print("title " .. t) return seen(t) end
  + \nlocal made = button.new
  + \nbutton.new = function(t, f) print("button " .. t) return made(t, f) end
  + \nmenu.start(menu.page(("t"):rep(99), { { "123456789abcdefgh", "batc=1" } }))
  phone    key 116 tap | clock +140 | idle
  # 1080 - 2 * 36 pixels are 21 characters of 48, (1080 - 3 * 16) / 2 - 2 * 30 are 9.5; a line ends where it would be full
  phone    kmsg 15                 -> phone: print: title tttttttttttttttttttt\nphone: print: button 123456789\n
  +        phone: print: title Choose a test\nphone: print: button \*11{\nphone: print: title }

wrong arguments and wrong widgets are told in words
  write    /system/scripts/start_korvat.lua local out = io.open("/data/out", "w")
  + \nlocal function try(f, ...) out:write(tostring(select(2, pcall(f, ...))), "\\n") end
  + \nlocal c, l = canvas.new(), label.new("text")
  + \ntry(screen.line, 0, 0, 10)
  + \ntry(label.get_text, c)
  + \ntry(canvas.add, c, "x")
  + \ntry(canvas.add, c, io.stdout)
  + \ntry(custom.set_event_key, l, print)
  + \ntry(label.get_text, l)
  + \nout:close()
  phone    key 116 tap | clock +140 | idle
  file     /data/out -> Wrong number of arguments\nluigi_type 2 expected, got 1\ncanvas (or inheritage) expected, got string\ncanvas (or inheritage) expected, got userdata\nluigi_type 8 expected, got 3\ntext\n

a handler that pops its own page and lets the collector run comes to no harm
  write    /system/scripts/start_korvat.lua screen.init()
  + \nlocal function page(n)
  + \n  local root = canvas.new()
  + \n  canvas.add(root, button.new("page " .. n, function(me)
  + \n    taboret.pop() root = nil collectgarbage() collectgarbage()
  + \n    kept = me
  + \n    qat("lctr=13,1," .. n .. ",1")
  + \n    if n < 11 then page(n + 1) end
  + \n  end))
  + \n  taboret.push(root)
  + \nend
  + \npage(10)
  + \nqat("dtch=3")
  write    /system/scripts/stop.lua collectgarbage() collectgarbage()
  + \nlocal _, why = pcall(label.set_text, kept, "gone")
  + \nlocal f = io.open("/data/out", "w") f:write(why) f:close()
  phone    key 116 tap | clock +140 | idle | touch 100 50 tap | clock +140 | idle
  file     /sys/class/leds/red/brightness -> 10
  phone    touch 100 50 tap | clock +140 | idle
  file     /sys/class/leds/red/brightness -> 11
  phone    key 116 tap | clock +140 | idle
  # the button whose handler kept it is gone with its page
  file     /data/out -> canvas (or inheritage) expected, got userdata

a script can't end the program, and its files are those of the phone, opened in each mode and read by lines
  write    /system/scripts/start_korvat.lua -- start
  + \nlocal note, out = luigi_scripts_path .. "note", "/data/out"
  + \nlocal function put(name, mode, text) local f = io.open(name, mode) f:write(text) f:close() end
  + \nput(note, "w", "longer than") put(note, "wb", "kept\\n") put(note, "a", "added\\n") put(note, "r+b", "K")
  + \nput(out, "w", io.open(note):read("*a"))
  + \nfor line in io.lines(note) do put(out, "a", line .. ";") end
  + \nfor some in io.lines("/system/scripts/note", 4) do put(out, "a", some .. "|") end
  + \nput(out, "a", select(2, pcall(io.open, note, "rw")) .. select(2, pcall(io.lines, "/nosuch")))
  + \nassert(not io.tmpfile())
  + \nlocal t, f = io.tmpfile(), io.open("/data/temp", "w") t:write("one") t:seek("set")
  + \nlocal a, b = os.tmpname(), os.tmpname()
  + \nf:write(t:read("*a"), a == b and "same" or "two", io.open(a):read("*a"), io.open(b):read("*a")) f:close()
  + \nos.execute("echo hello > /dev/kmsg")
  + \nos.exit(0)
  phone    fail open /data/lua_ | key 116 tap | clock +140 | idle
  file     /data/temp              -> onetwo
  file     /system/scripts/note    -> Kept\nadded\n
  file     /data/out               -> Kept\nadded\nKept;added;Kept|\nadd|ed\n|bad argument #2 to 'io.open' (invalid mode)
  +        /nosuch: No such file or directory
  phone    kmsg -> Korvat HVT is starting up...\nphone: wcnss: calibration korvat_sella_WCNSS_qcom_wlan_nv.bin\nhello\nQAT: luigi: /system/scripts/start_korvat.lua:14: os.exit ends the menu
