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
-- Captions have up to nine characters; buttons that don't fit go to a next page by themselves. Volume down
-- goes back, wherever one is. Everything is measured in characters, so any panel will do.

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

-- Sizes, known once the panel is up.
local W, H, CW, CH, GAP

local function measure()
    W, H = screen.get_width(), screen.get_height()
    CW, CH = screen.get_char_width(), screen.get_char_height()
    GAP = math.floor(CH / 3)
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
    local b = button.new(caption, handler)
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

-- Cuts a text into lines of at most `columns` characters, at blanks and behind commas where there are any.
local function cut(text, columns)
    local lines, line = {}, ""
    for word in text:gmatch("[^ ,]*[ ,]*") do
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
    for i, l in ipairs(lines) do lines[i] = l:gsub("^ +", ""):gsub(" +$", "") end
    return lines
end

local function show_part()
    local r = result
    local first = (r.part - 1) * r.rows
    for row = 1, r.rows do
        label.set_text(r.labels[row], r.lines[first + row] or "")
    end
    local status = r.status
    if r.parts > 1 then status = status .. "  " .. r.part .. "/" .. r.parts end
    label.set_text(r.head, status)
    label.set_text_color(r.head, r.colour)
end

-- Shows a status in green (good), red (not good) or grey (nil), and a text below it. A long text has parts:
-- a touch shows the next.
function menu.show(status, good, text)
    local r = result
    if not r then return end
    r.lines = cut(text or "", r.columns)
    r.part, r.parts = 1, math.max(1, math.ceil(#r.lines / r.rows))
    r.status = status
    r.colour = good == nil and PLAIN or good and GOOD or BAD
    show_part()
end

local function next_part()
    if not result or result.parts < 2 then return end
    result.part = result.part % result.parts + 1
    show_part()
end

-- What a command answered, without its name; several lines become one text.
local function plain(command, text)
    local name = (command:match("^%w+") or ""):upper()
    text = (text or ""):gsub("[\r\n]+", "  ")
    return (text:gsub("^" .. name .. ":", ""):gsub(name .. ":", "  "))
end

-- Runs a command, shows what came of it, and gives both back.
function menu.run(command)
    menu.show(command .. " ...", nil, "")
    taboret.update()
    local status, text = qat(command)
    menu.show(command .. "  " .. (status or "no answer"), status == "OK", plain(command, text))
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

-- A page of one's own making: `build(root, x, y, w, h)` fills the place between bar and back button.
function menu.open_special(title, build, on_key)
    local root = canvas.new()
    colours(root, PAPER, PAPER)
    local bar = math.floor(CH * 2.5)
    local foot_y = H - bar - GAP
    push(root)
    local top = #below == 1
    add_label(root, title, 0, 0, W, bar, (bar - CH) / 2, BAR, BAR_INK)
    if not top then
        add_button(root, "< Back", GAP, foot_y, W - 2 * GAP, bar, (bar - CH) / 2, function() menu.back() end)
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

-- Status line and box at the bottom of a page.
local function add_result(root, x, y, w, h)
    local pad = math.floor(CH / 4)
    local row = CH + pad
    local head = add_label(root, "Choose a test", x, y, w, row, pad / 2, PAPER, PLAIN)
    local box = add_button(root, "", x, y + row, w, h - row, pad, next_part)
    local rows = math.max(1, math.floor((h - row - pad) / row))
    local labels = {}
    for i = 1, rows do
        labels[i] = add_label(root, "", x + pad, y + row + pad + (i - 1) * row, w - 2 * pad, CH, 0, BUTTON, INK)
    end
    local columns = math.max(1, math.ceil((w - 2 * pad) / CW) - 1)
    result = { head = head, box = box, labels = labels, rows = rows, columns = columns,
               lines = {}, part = 1, parts = 1, status = "", colour = PLAIN }
end

-- Two columns of buttons from `first` on, the last one leading on to those that there is no room for.
local function add_grid(root, page, x, y, w, h)
    local bw, bh = math.floor((w - GAP) / 2), math.floor(CH * 2.25)
    local places = math.max(1, math.floor((h + GAP) / (bh + GAP))) * 2
    local left = #page.items - page.first + 1
    local shown = left > places and places - 1 or left
    local function at(i, caption, handler)
        add_button(root, caption, x + (i % 2) * (bw + GAP), y + math.floor(i / 2) * (bh + GAP), bw, bh,
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
    return { title = title, items = items, first = 1 }
end

function menu.open(page)
    menu.open_special(page.title, function(root, x, y, w, h)
        local box = math.floor(h * 0.42)
        add_grid(root, page, x, y, w, h - box - GAP)
        add_result(root, x, y + h - box, w, box)
    end)
end

-- A page that is drawn by a command and nothing else; a touch or volume down leaves it.
function menu.full_screen(command)
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

-- Asks before something that can't be undone.
function menu.ask(question, yes)
    menu.open_special("Sure?", function(root, x, y, w, h)
        local row = math.floor(CH * 2.5)
        add_label(root, question, x, y + row, w, CH * 4, CH / 4, PAPER, BAD)
        add_button(root, "Yes", x, y + h - row, w, row, (row - CH) / 2, yes)
    end)
end

-- Where a finger is and which keys were pressed, as they come.
function menu.live()
    local trail, keys, place_text = {}, {}, "Draw, or press keys"
    local function back()
        qat("dtch=3")
        menu.back()
    end
    local function on_key(code, action)
        if code == KEY_VOLUME_DOWN and action == KEY_PRESSED then return back() end
        table.insert(keys, 1, "key " .. code .. (action == KEY_PRESSED and " pressed" or " released"))
        keys[9] = nil
    end
    menu.open_special("Touch and keys", function(root, x, y, w, h)
        local area = custom.new()
        custom.set_event_draw(area, function()
            screen.rectangle(x, y, w, h, EDGE, BUTTON, 1)
            screen.print(place_text, x + GAP, y + GAP, INK)
            for i, line in ipairs(keys) do
                screen.print(line, x + GAP, y + GAP + i * CH * 1.25, PLAIN)
            end
            for i = 2, #trail do
                local a, b = trail[i - 1], trail[i]
                for d = -2, 2 do -- as thick as a pen
                    if a.down then screen.line(a.x + d, a.y, b.x + d, b.y, BAD) end
                end
            end
            local last = trail[#trail]
            if last and last.down then
                screen.line(x, last.y, x + w - 1, last.y, GOOD)
                screen.line(last.x, y, last.x, y + h - 1, GOOD)
            end
        end)
        -- While the finger is traced no press is told, so the button below doesn't hear of one.
        custom.set_event_touch(area, function(tx, ty, action)
            if ty >= y + h then
                if action ~= TOUCH_RELEASED then back() end
                return
            end
            if ty < y or tx < x or tx >= x + w then return end
            place_text = tx .. ", " .. ty .. (action == TOUCH_RELEASED and "  up" or "")
            trail[#trail + 1] = { x = tx, y = ty, down = action ~= TOUCH_RELEASED }
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
    qat("dtch=3")
end

return menu
