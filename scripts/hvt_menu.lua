-- The menu's building blocks: pages of buttons, each of which runs a command (or a function, or opens another
-- page), with the answer below them. A page is a title and a list:
--
--   local menu = dofile(luigi_scripts_path .. "hvt_menu.lua")
--   local battery = menu.page("Battery", {
--       { "Voltage", "batc=1" },                 -- runs a command, shows its status and text
--       { "Details", other_page },               -- opens a page
--       { "Greet", function() menu.show("hello", true, "how are you?") end },
--   })
--   menu.start(battery)
--
-- Captions have up to nine characters, what is longer is cut; buttons that don't fit go to a next page by
-- themselves. A page without a command has wide buttons and no place for answers. Volume down goes back, wherever
-- one is. Everything is measured in characters, so any panel will do.

local menu = {}

local KEY_VOLUME_DOWN = 114
local KEY_PRESSED = 2
local TOUCH_PRESSED, TOUCH_RELEASED = 1, 2

local PAPER, INK = 0xF1F4F8, 0x12304F
local BAR, BAR_INK = 0x12304F, 0xFFFFFF
local BUTTON, EDGE = 0xFFFFFF, 0x8A9BB0
local GOOD, BAD, PLAIN = 0x007A33, 0xC00000, 0x505050

-- The result area of the page on top (nil where it has none), and those of the pages below it.
local result
local below = {}
local add_result

-- Sizes, known once the panel is up.
local W, H, CW, CH, GAP

local function measure()
    W, H = screen.get_width(), screen.get_height()
    CW, CH = screen.get_char_width(), screen.get_char_height()
    GAP = math.floor(CH / 3)
end

-- What an author has given wrongly is an error at the author's own line, not somewhere in here.
local function want(good, what)
    if not good then error("menu: " .. what, 3) end
end

-- What shows something needs to know how large the panel is.
local function want_started(name)
    if not W then error("menu: " .. name .. " before menu.start", 3) end
end

-- How many characters a label of this width and padding has in a line: it breaks one earlier than it must.
local function columns_of(w, padding)
    return math.max(1, math.ceil((w - 2 * math.floor(padding)) / CW) - 1)
end

local function place(widget, x, y, w, h)
    canvas.set_position(widget, math.floor(x), math.floor(y))
    canvas.set_size(widget, math.floor(w), math.floor(h))
end

local function colours(widget, back, edge)
    canvas.set_back_color(widget, back)
    canvas.set_border_color(widget, edge)
end

local function add_button(parent, caption, x, y, w, h, padding, handler)
    local b = button.new(caption:sub(1, columns_of(w, padding)), handler)
    place(b, x, y, w, h)
    canvas.set_padding(b, math.floor(padding))
    colours(b, BUTTON, EDGE)
    label.set_text_color(b, INK)
    canvas.add(parent, b)
    return b
end

local function add_label(parent, text, x, y, w, h, padding, back, ink)
    local l = label.new(text)
    place(l, x, y, w, h)
    canvas.set_padding(l, math.floor(padding))
    colours(l, back, back)
    label.set_text_color(l, ink)
    canvas.add(parent, l)
    return l
end

-- Cuts a line into pieces of at most `columns` characters, at blanks, behind commas and slashes where it can.
local function cut_line(text, columns, lines)
    local line = ""
    for word in text:gmatch("[^ ,/]*[ ,/]*") do
        if line ~= "" and #line + #word:gsub(" +$", "") > columns then
            lines[#lines + 1] = line
            line = ""
        end
        line = line .. word
        while #line:gsub(" +$", "") > columns do
            lines[#lines + 1] = line:sub(1, columns)
            line = line:sub(columns + 1)
        end
    end
    if line:find("[^ ]") then lines[#lines + 1] = line end
end

local function cut(text, columns)
    local lines = {}
    for line in text:gmatch("[^\r\n]+") do cut_line(line, columns, lines) end
    for i, l in ipairs(lines) do lines[i] = l:gsub("^ +", ""):gsub(" +$", "") end
    return lines
end

-- Of an answer of several parts the last row says how it goes on.
local function show_part()
    local r = result
    local rows = r.parts > 1 and r.rows - 1 or r.rows
    for row = 1, r.rows do
        label.set_text(r.labels[row], row <= rows and r.lines[(r.part - 1) * rows + row] or "")
        label.set_text_color(r.labels[row], row <= rows and INK or PLAIN)
    end
    if r.parts > 1 then
        label.set_text(r.labels[r.rows], ("%d/%d  touch: more >"):format(r.part, r.parts):sub(1, r.columns))
    end
    label.set_text(r.head, r.status:sub(1, r.columns))
    label.set_text_color(r.head, r.colour)
end

-- Shows a status in green (good), red (not good) or grey (nil), and a text below it. A long text has parts:
-- a touch shows the next. On a page that has no place for it a page opens.
function menu.show(status, good, text)
    want_started("show")
    want(type(status) == "string", "show(status, good, text) wants a text as status, not " .. type(status))
    want(text == nil or type(text) == "string", "show(status, good, text) wants a text, not " .. type(text))
    if not result then menu.open_special("Result", add_result) end
    local r = result
    r.lines = cut(text or "", r.columns)
    local fits = #r.lines <= r.rows or r.rows < 2
    r.part, r.parts = 1, fits and 1 or math.ceil(#r.lines / (r.rows - 1))
    r.status = status
    r.colour = good == nil and PLAIN or good and GOOD or BAD
    show_part()
end

local function next_part()
    if not result or result.parts < 2 then return end
    result.part = result.part % result.parts + 1
    show_part()
end

-- What a command answered, without its name: a line each time that the name came, and one for its usage,
-- which begins with the name in ten columns.
local function plain(command, text)
    local name = command:match("^%w+") or ""
    local usage = name .. (" "):rep(10 - #name)
    text = (text or ""):gsub(name:upper() .. ":", "\n"):gsub(name .. ":", "\n") -- the second with case=1
    return (text:gsub(usage, "\n%0"))
end

-- Runs a command, shows what came of it, and gives both back. The status is never cut, a long command is.
function menu.run(command)
    want_started("run")
    want(type(command) == "string", "run(command) wants a command line, not " .. type(command))
    menu.show(command .. " ...", nil, "")
    taboret.update()
    local status, text = qat(command)
    local word = status or "no answer"
    local room = result.columns - #word - 2
    local shown = #command <= room and command or command:sub(1, math.max(room - 2, 0)) .. ".."
    menu.show(shown .. "  " .. word, status == "OK", plain(command, text))
    return status, text
end

local function push(root)
    below[#below + 1] = result or false
    result = nil
    taboret.push(root)
end

-- Leaves the page on top; the first page stays.
function menu.back()
    if #below < 2 then return end
    taboret.pop()
    result = table.remove(below) or nil
end

-- A key watcher that takes no room: volume down goes back.
local function add_keys(root, handler)
    local keys = custom.new()
    custom.set_event_key(keys, handler or function(code, action)
        if code == KEY_VOLUME_DOWN and action == KEY_PRESSED then menu.back() end
    end)
    canvas.add(root, keys)
end

-- A page of one's own making: `build(root, x, y, w, h)` fills the place between bar and back button. `on_key` and
-- `on_back` take the place of what volume down and the back button do.
function menu.open_special(title, build, on_key, on_back)
    want_started("open_special")
    want(type(title) == "string", "open_special(title, build) wants a title, not " .. type(title))
    want(type(build) == "function", "open_special(title, build) wants a function, not " .. type(build))
    local root = canvas.new()
    colours(root, PAPER, PAPER)
    local bar = math.floor(CH * 2.5)
    local foot_y = H - bar - GAP
    push(root)
    local top = #below == 1
    local padding = (bar - CH) / 2
    add_label(root, title:sub(1, columns_of(W, padding)), 0, 0, W, bar, padding, BAR, BAR_INK)
    if not top then
        add_button(root, "< Back", GAP, foot_y, W - 2 * GAP, bar, (bar - CH) / 2,
                   on_back or function() menu.back() end)
    end
    add_keys(root, on_key)
    build(root, GAP, bar + GAP, W - 2 * GAP, (top and H or foot_y) - GAP - bar - GAP)
end

local function press(item)
    return function()
        local what = item[2]
        if type(what) == "string" then menu.run(what)
        elseif type(what) == "function" then what()
        else menu.open(what) end
    end
end

-- Status line and box of a page.
function add_result(root, x, y, w, h)
    local pad = math.floor(CH / 4)
    local row = CH + pad
    local head = add_label(root, "Choose a test", x, y, w, row, pad / 2, PAPER, PLAIN)
    add_button(root, "", x, y + row, w, h - row, pad, next_part)
    local rows = math.max(1, math.floor((h - row - pad) / row))
    local labels = {}
    for i = 1, rows do
        labels[i] = add_label(root, "", x + pad, y + row + pad + (i - 1) * row, w - 2 * pad, CH, 0, BUTTON, INK)
    end
    local columns = columns_of(w, pad)
    result = { head = head, labels = labels, rows = rows, columns = columns,
               lines = {}, part = 1, parts = 1, status = "", colour = PLAIN }
end

-- Buttons in columns from `first` on, the last one leading on to those that there is no room for. They are lower
-- where that helps, down to `least`, if that is given.
local function add_grid(root, page, x, y, w, h, columns, least)
    local bw = math.floor((w + GAP) / columns) - GAP
    local bh = math.floor(columns == 1 and CH * 3 or CH * 2.25)
    if least then bh = math.min(bh, math.max(least, math.floor((h + GAP) / math.ceil(#page.items / columns)) - GAP)) end
    local places = math.max(1, math.floor((h + GAP) / (bh + GAP))) * columns
    local left = #page.items - page.first + 1
    local shown = left > places and places - 1 or left
    local function at(i, caption, handler)
        add_button(root, caption, x + (i % columns) * (bw + GAP), y + math.floor(i / columns) * (bh + GAP), bw, bh,
                   (bh - CH) / 2, handler)
    end
    for i = 0, shown - 1 do
        local item = page.items[page.first + i]
        at(i, item[1], press(item))
    end
    if shown < left then
        local rest = { title = page.title, items = page.items, first = page.first + shown }
        at(shown, "More >", function() menu.open(rest) end)
    end
end

function menu.page(title, items)
    want(type(title) == "string", "page(title, list) wants a title, not " .. type(title))
    want(type(items) == "table", "page(title, list) wants a list, not " .. type(items))
    for i, item in ipairs(items) do
        local caption = type(item) == "table" and item[1]
        want(type(caption) == "string", "page \"" .. title .. "\": item " .. i .. " has no caption")
        local what = item[2]
        want(type(what) == "string" or type(what) == "function" or type(what) == "table" and what.items,
             "page \"" .. title .. "\": item " .. i .. ", \"" .. caption ..
             "\", wants a command, a function or a page, not " .. type(what))
    end
    return { title = title, items = items, first = 1 }
end

local function has_command(page)
    for _, item in ipairs(page.items) do
        if type(item[2]) == "string" then return true end
    end
    return false
end

function menu.open(page)
    want_started("open")
    want(type(page) == "table" and page.items, "open(page) wants what menu.page gives, not " .. type(page))
    menu.open_special(page.title, function(root, x, y, w, h)
        local box = has_command(page) and math.floor(h * 0.42) or 0
        add_grid(root, page, x, y, w, h - box - (box > 0 and GAP or 0), box > 0 and 2 or 1)
        if box > 0 then add_result(root, x, y + h - box, w, box) end
    end)
end

-- A page with buttons above and the answer below a picture of `height` pixels that stands in the middle of the
-- screen, as a viewfinder does. `leave` runs when the page is left.
function menu.open_around(page, height, leave)
    want_started("open_around")
    want(type(page) == "table" and page.items, "open_around(page) wants what menu.page gives, not " .. type(page))
    want(type(height) == "number" and type(leave) == "function",
         "open_around(page, height, leave) wants a number and a function")
    local function back()
        leave()
        menu.back()
    end
    local function on_key(code, action)
        if code == KEY_VOLUME_DOWN and action == KEY_PRESSED then back() end
    end
    menu.open_special(page.title, function(root, x, y, w, h)
        local top = math.max(math.floor((H - height) / 2), y + GAP)
        local bottom = math.min(math.floor((H + height) / 2) + GAP, y + h)
        add_grid(root, page, x, y, w, top - GAP - y, 3, math.floor(CH * 1.5))
        add_result(root, x, bottom, w, y + h - bottom)
    end, on_key, back)
end

-- A page that is drawn by a command and nothing else; a touch or volume down leaves it.
function menu.full_screen(command)
    want(type(command) == "string", "full_screen(command) wants a command line, not " .. type(command))
    local root = canvas.new()
    local picture = custom.new()
    custom.set_event_draw(picture, function() qat(command) end)
    custom.set_event_touch(picture, function(_, _, action)
        if action == TOUCH_PRESSED then menu.back() end
    end)
    canvas.add(root, picture)
    add_keys(root)
    push(root)
end

-- Asks before something that can't be undone; what the command answers stands on the page before.
function menu.ask(question, command)
    want_started("ask")
    want(type(question) == "string" and type(command) == "string", "ask(question, command) wants two texts")
    menu.open_special("Sure?", function(root, x, y, w, h)
        local row = math.floor(CH * 2.5)
        for i, line in ipairs(cut(question, math.floor(w / CW) - 1)) do
            add_label(root, line, x, y + row + (i - 1) * CH * 1.5, w, CH * 1.5, CH / 4, PAPER, BAD)
        end
        add_button(root, "Yes", x, y + h - row, w, row, (row - CH) / 2, function()
            menu.back()
            menu.run(command)
        end)
    end)
end

local KEYS_SHOWN = 5

-- The strip above the drawing: where the finger is, and the last keys.
local function draw_strip(x, y, w, h, place_text, keys)
    screen.rectangle(x, y, w, h, PAPER, PAPER, 1)
    screen.print(place_text, x, y, INK)
    for i, line in ipairs(keys) do
        screen.print(line, x, y + i * CH * 1.25, PLAIN)
    end
end

-- The way of the finger, as thick as a pen, and a cross where it is.
local function draw_trail(x, y, w, h, trail)
    screen.rectangle(x, y, w, h, EDGE, BUTTON, 1)
    for i = 2, #trail do
        local a, b = trail[i - 1], trail[i]
        for d = -2, 2 do
            if a.down then
                screen.line(a.x + d, a.y, b.x + d, b.y, BAD)
                screen.line(a.x, a.y + d, b.x, b.y + d, BAD)
            end
        end
    end
    local last = trail[#trail]
    if last and last.down then
        screen.line(x, last.y, x + w - 1, last.y, GOOD)
        screen.line(last.x, y, last.x, y + h - 1, GOOD)
    end
end

-- Where a finger is and which keys were pressed, as they come.
function menu.live()
    want_started("live")
    local trail, keys, place_text, touched = {}, {}, "Draw, or press keys", false
    local function back()
        qat("dtch=3")
        menu.back()
    end
    local function on_key(code, action)
        if code == KEY_VOLUME_DOWN and action == KEY_PRESSED then return back() end
        table.insert(keys, 1, "key " .. code .. (action == KEY_PRESSED and " pressed" or " released"))
        keys[KEYS_SHOWN + 1] = nil
    end
    menu.open_special("Touch and keys", function(root, x, y, w, h)
        local strip = math.floor(CH * 1.25 * (KEYS_SHOWN + 1))
        local top, depth = y + strip + GAP, h - strip - GAP
        local area = custom.new()
        custom.set_event_draw(area, function()
            draw_strip(x, y, w, strip, place_text, keys)
            draw_trail(x, top, w, depth, trail)
        end)
        -- While the finger is traced no press is told, so the button below doesn't hear of one.
        custom.set_event_touch(area, function(tx, ty, action)
            local down = action ~= TOUCH_RELEASED
            touched = touched or down -- the press that has opened the page is none of its own
            if not touched then return end
            if ty >= y + h then
                if down then back() end
                return
            end
            place_text = tx .. ", " .. ty .. (down and "" or "  up")
            local inside = tx > x + 2 and tx < x + w - 3 and ty > top + 2 and ty < top + depth - 3
            local last = trail[#trail]
            if inside then
                trail[#trail + 1] = { x = tx, y = ty, down = down }
            elseif last then
                last.down = false
            end
            if #trail > 200 then table.remove(trail, 1) end
        end)
        canvas.add(root, area)
    end, on_key)
    qat("dtch=2")
end

-- Brings the panel up and opens the first page; nothing happens without a panel.
function menu.start(page)
    if screen.init() ~= 1 then return end
    measure()
    menu.open(page)
    local status = qat("dtch=3")
    if status ~= "OK" then
        menu.show("No touch", false, "dtch=3 answers " .. (status or "nothing") .. ", so no button can be pressed. "
            .. "Volume down goes back to the menu, the power key ends it.")
    end
end

return menu
