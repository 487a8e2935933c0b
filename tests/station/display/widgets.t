# Where the widgets of a menu are, on a panel of 1080 x 1920 with characters of 48 x 48; a root's padding is 8,
# a label's 4, a button's 30. Backgrounds tell where something is.

labels stack from the top, as wide as the screen less the padding on both sides
  write    /system/scripts/start_korvat.lua screen.init()
  + \nlocal root = canvas.new()
  + \nfor i, c in ipairs({0xFF0000, 0x00FF00, 0x0000FF}) do
  + \n  local l = label.new(" ")
  + \n  canvas.set_back_color(l, c) canvas.set_border_color(l, c)
  + \n  canvas.add(root, l)
  + \nend
  + \ntaboret.push(root)
  phone    key 116 tap | clock +140 | idle
  # a label of one line has 4 + 48 + 4 = 56 rows: 8 to 63, 72 to 127, 136 to 191
  phone    pixel 8 8 -> FF0000 | pixel 1071 63 -> FF0000 | pixel 7 8 -> FFFFFF
  phone    pixel 1072 8 -> FFFFFF | pixel 8 71 -> FFFFFF | pixel 8 72 -> 00FF00
  phone    pixel 8 191 -> 0000FF | pixel 8 192 -> FFFFFF

plain canvases are a quarter of their parent, placed ones what they were told, and count in the stack
  write    /system/scripts/start_korvat.lua screen.init()
  + \nlocal root, box = canvas.new(), canvas.new()
  + \nlocal function add(parent, c)
  + \n  local w = canvas.new()
  + \n  canvas.set_back_color(w, c) canvas.set_border_color(w, c)
  + \n  canvas.add(parent, w)
  + \n  return w
  + \nend
  + \ncanvas.set_position(box, 100, 200) canvas.set_size(box, 300, 400)
  + \ncanvas.set_padding(box, 10)
  + \ncanvas.add(root, box)
  + \nadd(box, 0xFF0000)
  + \nlocal placed = add(box, 0x00FF00)
  + \ncanvas.set_size(placed, 20, 30)
  + \nadd(box, 0x0000FF)
  + \ntaboret.push(root)
  phone    key 116 tap | clock +140 | idle
  # the first: x 110 to 389, y 210 to 309
  phone    pixel 120 210 -> FF0000 | pixel 389 309 -> FF0000
  # a size alone places: at the parent's corner
  phone    pixel 100 200 -> 00FF00 | pixel 119 229 -> 00FF00
  # the third stands below the second's 30 rows: 200 + 10 + (100 + 10) + (30 + 10) = 360
  phone    pixel 110 359 -> FFFFFF | pixel 110 360 -> 0000FF | pixel 110 459 -> 0000FF
  phone    pixel 110 460 -> FFFFFF

a line of a label ends at the character with which it would reach the usable width
  write    /system/scripts/start_korvat.lua screen.init()
  + \nlocal root = canvas.new()
  + \nlocal function column(x, w, text)
  + \n  local box, l = canvas.new(), label.new(text)
  + \n  canvas.set_position(box, x, 0) canvas.set_size(box, w, 1000)
  + \n  canvas.set_back_color(l, 0xFF0000) canvas.set_border_color(l, 0xFF0000)
  + \n  label.set_text_color(l, 0xFF0000)
  + \n  canvas.add(box, l) canvas.add(root, box)
  + \nend
  + \ncolumn(0, 216, "abc")
  + \ncolumn(216, 216, "abcd")
  + \ncolumn(648, 216, "ab    cd")
  + \ncolumn(864, 72, "abc")
  + \ncolumn(936, 60, "abcdefgh")
  + \ntaboret.push(root)
  phone    key 116 tap | clock +140 | idle
  # 216 - 2 * 8 - 2 * 4 = 192 = 4 * 48: the fourth character would reach it, so a line holds three
  phone    pixel 8 63 -> FF0000 | pixel 8 64 -> FFFFFF
  # two lines: 4 + 2 * 52 = 108 rows
  phone    pixel 224 115 -> FF0000 | pixel 224 116 -> FFFFFF
  # "ab ", "   ", "cd": the spaces at a break count for the height
  phone    pixel 656 167 -> FF0000 | pixel 656 168 -> FFFFFF
  # 72 - 16 - 8 = 48, one character wide: a line holds one all the same
  phone    pixel 872 167 -> FF0000 | pixel 872 168 -> FFFFFF
  # 60 - 16 - 8 = 36, narrower than a character: not broken
  phone    pixel 944 63 -> FF0000 | pixel 944 64 -> FFFFFF

a page without a canvas is white, and a full stack takes no more
  write    /system/scripts/start_korvat.lua screen.init()
  + \nqat("dclr=0,1,2,3")
  + \ntaboret.update()
  + \nlocal function page(c)
  + \n  local root = canvas.new()
  + \n  canvas.set_back_color(root, c)
  + \n  taboret.push(root)
  + \nend
  + \nfor i = 1, 33 do page(i) end
  phone    key 116 tap | clock +140 | idle
  # the 33rd isn't stored
  phone    pixel 540 960 -> 000020
  write    /system/scripts/stop.lua for i = 1, 40 do taboret.pop() end
  phone    key 116 tap | clock +140 | idle | pixel 540 960 -> FFFFFF

a widget goes into one tree only, and never into itself
  write    /system/scripts/start_korvat.lua -- start
  + \nscreen.init()
  + \nlocal a, b, c = canvas.new(), canvas.new(), canvas.new()
  + \ncanvas.set_back_color(c, 0xFF0000)
  + \ncanvas.add(a, a) canvas.add(a, b) canvas.add(b, a) canvas.add(b, c) canvas.add(a, c)
  + \nlocal top = a
  + \nlocal _, why = pcall(function()
  + \n  for i = 1, 100 do local n = canvas.new() canvas.add(top, n) top = n end
  + \nend)
  + \nlocal f = io.open("/data/out", "w") f:write(why) f:close()
  + \ntaboret.push(a)
  phone    key 116 tap | clock +140 | idle
  file     /data/out -> /system/scripts/start_korvat.lua:8: widgets nested more than 64 deep
  # b: 8, 8 with a quarter of 1920 = 480 rows; c in it: 16, 16 and 120 rows
  phone    pixel 17 134 -> FF0000 | pixel 17 136 -> FFFFFF
