// The touch sensor's own tests through its controller, a MAX11876: noise, raw nodes, differences of
// neighbours, open and shorted lines, and the reset. What it measures goes out as text; what passes is the
// station's. It supplies the last operation of `touch` and leaves all others to the panel's driver. A test
// takes seconds and blocks its caller; one at a time.
//
// Test modes, and the text of each; `iterations` is the number of frames, 10 if negative:
//   0 reset, no text                          7, 8 drive lines: statistics, nodes
//   1, 2 noise: largest and its node, nodes   9, 10 sense lines: statistics, nodes
//   3, 4 raw: statistics, nodes               6 differences of neighbours
// Raw, difference and line tests with 0 frames measure nothing and tell the last results.
#pragma once

void touch_max11876_init();
