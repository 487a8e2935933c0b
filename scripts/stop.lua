-- Runs when the power key closes the menu: no more touches, and a dark panel in the place of the pages.

qat("dtch=0")
local dark = canvas.new()
canvas.set_back_color(dark, 0)
canvas.set_border_color(dark, 0)
taboret.push(dark)
