// The two tests of the stream. Both stop and close the demultiplexer however they end.
#pragma once

#include "isdb/isdb.h"

int isdb_ej113_normOP(isdb_stream_result* p_result);
int isdb_ej113_tptnOP(int rate, int pattern, isdb_stream_result* p_result);
