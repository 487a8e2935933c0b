// The driver of this phone's receiver over the tuner library: supply, tuning by circuit, readings, stream
// tests. Attaches itself to isdb; call that.
#pragma once

void isdb_ej113_init();
