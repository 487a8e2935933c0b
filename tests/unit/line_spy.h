// A parser of its own with one client that keeps the lines which a command shows.
#pragma once

#include <string>
#include <vector>

#include "dcp/dcp.h"
#include "unit/exact_text.h"

struct line_spy {
    dcp_client client = {0, keep, [](dcp_client*, void*, std::size_t, dcp_bin_cb, void*) {},
                         [](dcp_client*, const void*, std::size_t, dcp_bin_cb, void*) {}, "spy"};
    std::vector<std::string> lines; // of the last command

    line_spy()
    {
        dcp_init();
        client.id = dcp_clnt_add(&client);
    }
    ~line_spy() { dcp_init(); }

    // The command's status.
    int say(const char* line)
    {
        lines.clear();
        return dcp_parse(client.id, exact_text(line).get());
    }

    static void keep(dcp_client* p_client, int, int, const char* text)
    {
        reinterpret_cast<line_spy*>(p_client)->lines.push_back(text);
    }
};
