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

local touch = menu.page("Touch", {
    { "Live", function() menu.live() end },
    { "Self test", "dtst=1" },
    { "Raw limit", "dtst=4,1" },
    { "Matrix", "dtst=4,2" },
    { "Identity", "dtid=1" },
    { "Stored id", "dtid=3" },
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
    { "Camera", "camds" },
})

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
    { "Keys", function() menu.live() end },
    { "Lights", lights },
    { "Battery", battery },
    { "Sensors", sensors },
    { "Contactless", contactless },
    { "Board", board },
    { "Radio", radio },
    { "System", system },
}))
