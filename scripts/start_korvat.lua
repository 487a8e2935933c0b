-- The menu that the power key opens. A page is a title and a list of buttons; see hvt_menu.lua.

local menu = dofile(luigi_scripts_path .. "hvt_menu.lua")

local function pattern(number)
    return function() menu.full_screen("dpat=" .. number) end
end

local display = menu.page("Display", {
    { "White", pattern(3) },
    { "Black", pattern(4) },
    { "Red", pattern(10) },
    { "Green", pattern(11) },
    { "Blue", pattern(12) },
    { "Stripes", pattern(7) },
    { "Chess", pattern(1) },
    { "TV", pattern(0) },
    { "Identity", "lcid" },
    { "VSYNC", "lvsm" },
})

-- A test of the touch sensor: of the answer's numbers a person reads what `tell` makes of them.
local function touch_sensor(command, tell)
    return function()
        menu.show(command .. " ...", nil, "")
        taboret.update()
        local status, text = qat(command)
        local numbers = {}
        for number in (text or ""):gsub("^%w+:", ""):gmatch("[-%d.]+") do numbers[#numbers + 1] = tonumber(number) end
        local good = status == "OK"
        menu.show(command .. "  " .. (status or "no answer"), good, good and tell(numbers) or "")
    end
end

-- Where a node is, of those counted row by row.
local function node(number)
    return ("row %d column %d"):format(math.floor(number / 24), number % 24)
end

local function noise(n)
    return ("largest %d\nat %s"):format(n[1], node(n[2]))
end

local function extremes(n, first)
    return ("smallest %d\nat %s\nlargest %d\nat %s"):format(n[first], node(n[first + 1]), n[first + 2],
        node(n[first + 3]))
end

local function lines(n)
    return ("average %d\n-%.1f%% +%.1f%%\n"):format(n[1], n[2] * 100, n[3] * 100) .. extremes(n, 4)
end

local touch = menu.page("Touch", {
    { "Live", function() menu.live() end },
    { "Self test", "dtst=1" },
    { "Raw limit", "dtst=4,1" },
    { "Matrix", "dtst=4,2" },
    { "Identity", "dtid=1" },
    { "Stored id", "dtid=3" },
    { "Noise", touch_sensor("dtst=7,1", noise) },
    { "Raw nodes", touch_sensor("dtst=7,3", function(n) return extremes(n, 1) end) },
    { "Drive", touch_sensor("dtst=7,7", lines) },
    { "Sense", touch_sensor("dtst=7,9", lines) },
})

local hdmi = menu.page("HDMI", {
    { "On", "hdmi=1" },
    { "Off", "hdmi=0" },
    { "Colours", "hdmi=2,1,2" },
    { "Grey", "hdmi=2,2,2" },
    { "White", "hdmi=2,3,2" },
    { "No image", "hdmi=2,0" },
    { "Tone on", "hdmi=3,1" },
    { "Tone off", "hdmi=3,0" },
    { "Monitor", "hdmi=5" },
    { "EDID ok", "hdmi=6" },
    { "Hot plug", "mhlt=4" },
    { "Bridge", "mhlt=5" },
})

local lights = menu.page("Lights", {
    { "Red", "lctr=13,1,255,1" },
    { "Green", "lctr=13,1,255,2" },
    { "Blue", "lctr=13,1,255,3" },
    { "LED off", "lctr=13,0" },
    { "Dim", "lctr=3,1,20" },
    { "Bright", "lctr=3,1,255" },
    { "LED test", "lsot" },
})

local battery = menu.page("Battery", {
    { "Voltage", "batc=1" },
    { "Current", "batc=2" },
    { "Capacity", "batc=3" },
    { "Temp", "batc=5" },
    { "Type", "batc=4" },
    { "Charge on", "scct=1,500" },
    { "No charge", "scct=0" },
})

-- Starts a sensor and shows what it reads.
local function sensor(start, command)
    return function()
        qat(start)
        menu.run(command)
    end
end

-- A self test ends with the chip reset: it is started anew behind it.
local function self_test(name)
    return function()
        qat(name .. "=1")
        menu.run(name .. "=5")
        qat(name .. "=0")
        qat(name .. "=1")
    end
end

local sensors = menu.page("Sensors", {
    { "Accel", sensor("acct=1", "acct=2") },
    { "Samples", sensor("acct=1", "acct=10,8,0,5") },
    { "Acc. test", self_test("acct") },
    { "Gyro", sensor("gspt=1", "gspt=2") },
    { "Gyro test", self_test("gspt") },
    { "Compass", sensor("ecmt=1", "ecmt=2") },
    { "Coil test", sensor("ecmt=1", "ecmt=5") },
    { "Light", sensor("lsen=0", "lsen=3") },
    { "Near", sensor("proxs=0", "proxs=3") },
    { "Shake", "vibc=1" },
    { "Be still", "vibc=0" },
})

local contactless = menu.page("Contactless", {
    { "Power on", "nfpu" },
    { "Power off", "nfpd" },
    { "Identity", "nfid=1" },
    { "Card", "nfdt" },
    { "One wire", "nfcst" },
    { "Self test", "nfst" },
    { "Chip 1", "nfsl=1" },
    { "Chip 2", "nfsl=2" },
    { "2: power", "nfpc=1,1" },
    { "Download", "nffd" },
    { "Progress", "nffd=0" },
})

local board = menu.page("Board", {
    { "Temp", "temp=0" },
    { "USB volts", "adcr=0x8" },
    { "Channels", "adcr=?" },
    { "Clock", "rtcr" },
    { "RF band", "rfbv" },
    { "Card", "mstt=0" },
    { "Card size", "mstt=1" },
    { "Chip", "msmv" },
    { "Settings", "syscfg=?" },
    { "Cover", "camds" },
})

-- The viewfinder of camera 1 or 2; one that is there already goes on.
local function viewfinder(camera)
    return function()
        local status = qat("caml=" .. camera)
        if status == "OK" then menu.run("camv=1,0") else menu.show("caml=" .. camera .. "  " .. status, false, "") end
    end
end

local camera = menu.page("Camera", {
    { "Main", viewfinder(1) },
    { "Sub", viewfinder(2) },
    { "Stop", "camv=0" },
    { "Focus", function()
        if qat("caaf=1") == "OK" then menu.run("caaf") else menu.show("caaf=1  ERROR", false, "") end
    end },
    { "Shot", "cams=1,0" },
    { "Go on", "cams=0" },
    { "Chart", "camg" },
    { "Marks", "camb=8" },
    { "Sharp", "camf=6" },
    { "Tilt", "cama=10,10,100" },
    { "Mean", "caii" },
    { "Lines", "camc=0" },
})

local VIEWFINDER_HEIGHT = 640

local function open_camera()
    menu.open_around(camera, VIEWFINDER_HEIGHT, function()
        qat("camv=0")
        qat("caml=0")
    end)
end

-- WLAN is powered up for the one command, as a station (1) or in test mode (0).
local function wlan(mode, command)
    return function()
        qat("wlpu=" .. mode)
        menu.run(command)
        qat("wlpd")
    end
end

local radio = menu.page("Radio", {
    { "BT text", "btid" },
    { "BT addr", "rwbt=3" },
    { "BT scan", "btscan=7" },
    { "WLAN id", wlan(0, "wlid") },
    { "WLAN scan", wlan(1, "wlscan") },
    { "SIM card", "sict=4" },
    { "SIM test", "sict=1" },
    { "FM tune", "fmct=1,1000" },
    { "FM level", "fmct=6" },
    { "IR open", "irpa=4,1" },
    { "IR send", "irtx=1" },
    { "IR close", "irtx=0" },
})

-- A tone on an output, instead of the one that runs; with a step of gain, that first.
local function tone(output, step)
    return function()
        qat("aloop=1,1,0")
        if step then qat(("gain=1,%d,%d"):format(output, step)) end
        menu.run(("aloop=1,%d,1"):format(output))
    end
end

-- What an input hears of a tone: of the speaker's, or of that which the capture brings along.
local function hear(capture, speaker)
    return function()
        qat("aloop=1,1,0")
        if speaker then qat("aloop=1,1,1") end
        local status = qat("aloop=" .. capture .. ",1")
        if status == "OK" then return menu.run("aloop=" .. capture .. ",0") end
        qat("aloop=1,1,0")
        menu.show("aloop=" .. capture .. ",1  " .. (status or "no answer"), false, "No capture could be started.")
    end
end

local sound = menu.page("Sound", {
    { "Speaker", tone(1) },
    { "Ear", tone(3, 3) },
    { "Left", tone(5) },
    { "Right", tone(4) },
    { "Quiet", "aurst=0" },
    { "Jack", "ajdt=0" },
    { "Mic 1", hear("2,1", true) },
    { "Mic 2", hear("2,2", true) },
    { "Plug L", hear("3,1") },
    { "Plug R", hear("3,2") },
    { "Line L", hear("3,3") },
    { "Line R", hear("3,4") },
    { "Contact", "vadet=1,1" },
    { "Bias on", "mpvc=1" },
    { "Bias off", "mpvc=0" },
})

local tuner = menu.page("TV", {
    { "Power on", "isdb=0,1" },
    { "Power off", "isdb=0,0" },
    { "Circuit 2", "issl=2,0" },
    { "Circuit 5", "issl=5,0" },
    { "Chan. 13", "isdb=1,13" },
    { "Chan. 27", "isdb=1,27" },
    { "Lock", "isdb=8" },
    { "Level", "isdb=2,0" },
    { "Bit err.", "isdb=11,0,2" },
    { "Pack err.", "isdb=11,1,2" },
    { "Stream", "isdb=6,0" },
    { "Pattern", "isdb=6,2" },
    { "Antenna A", "isdb=10,0" },
    { "Antenna B", "isdb=10,1" },
})

local system = menu.page("System", {
    { "Versions", "vers" },
    { "Modem", "vers=3" },
    { "Revision", "rev" },
    { "Program", "qatv" },
    { "Units", "tact" },
    { "Commands", "list" },
    { "Restart", function() menu.ask("Restart the phone now?", "kill") end },
    { "Power off", function() menu.ask("Switch the phone off now?", "poff=2000") end },
})

menu.start(menu.page("Hardware test", {
    { "Display", display },
    { "Touch", touch },
    { "HDMI", hdmi },
    { "Keys", function() menu.live() end },
    { "Lights", lights },
    { "Battery", battery },
    { "Sensors", sensors },
    { "Camera", open_camera },
    { "Contactless", contactless },
    { "Board", board },
    { "Radio", radio },
    { "Sound", sound },
    { "TV", tuner },
    { "System", system },
}))
