// What the files of this driver share.
#pragma once

#include <string>

// Entries: each attaches one driver.
void wcn3680_bt_linux_init();
void wcn3680_wlan_linux_init();
void wcn3680_fm_linux_init();

// The number that the tool which ran last has left at the start of its result file; false when there is no
// file, or no number of 32 bits in it.
bool wcn3680_result_get(int* p_number);

// Runs a shell line and takes what it prints, of which the first 64 KiB are kept. False when the line
// couldn't be run, failed, or printed more than anybody wants to read.
bool wcn3680_output_get(const char* line, std::string& text);

// 1 when the shell line ended well, else 0.
int wcn3680_run(const char* line);
