// The unit dump of tact=12: a text of all units of the main store, and the comparison of two such texts.
#pragma once

// Writes all units to `path`, which is replaced. The store must be open. 1 when the file is whole.
int f_ta_dump(const char* path);

// 1 when both files have the same bytes and aren't empty.
int f_ta_filecomp(const char* path1, const char* path2);
