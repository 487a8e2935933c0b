// What the files of dcp share.
#pragma once

#include <cstddef>

#include "dcp/dcp.h"

// Empties the list of tables.
void dcp_tab_init();

// The first row in list order with this name; null when there is none. The folded form writes the name's
// letters in lower case before it looks.
const dcp_cmd* dcp_tab_find(const char* name, std::size_t len);
const dcp_cmd* dcp_tab_find_folded(char* name, std::size_t len);

// The shell's own table: help, list, case.
extern const dcp_cmd dcp_cmd_tab[];

// Puts all client slots on the default client.
void dcp_clnt_init();
