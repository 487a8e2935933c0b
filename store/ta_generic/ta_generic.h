// The driver of the persistent units: loads the two closed store libraries, picks the store by the unit's
// number and limits what this build may reach. Attaches itself to ta_if; call that.
#pragma once

// Access limits: what this build may do with the auxiliary store.
constexpr int TA_OPTION_ALL = 0;       // everything, and a format clears both partitions
constexpr int TA_OPTION_READ_ONLY = 1; // reading
constexpr int TA_OPTION_MAIN_ONLY = 2; // nothing; the walk leaves it out
constexpr int TA_OPTION_LOW_UNITS = 3; // units below 0x10000

// Loads the libraries and attaches to ta_if. A library or a symbol that is missing stops the process.
void ta_generic_init(int option);

// The mode bits with which the main store is opened for writing.
int ta_generic_get_write_mode();
