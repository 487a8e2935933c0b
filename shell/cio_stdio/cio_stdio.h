// The console's device "stdio": the process's own standard input and output, for work on a bench. It echoes
// printable characters. One console at a time can have it.
#pragma once

void cio_stdio_init(); // tier entry: registers the device
