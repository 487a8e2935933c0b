// The web server: HTTP for the page's files, one WebSocket a page for all else, on the loopback address
// alone. Everything that knows the web library is in server.cpp.
#pragma once

#include <string>

namespace view {

struct server_options {
    std::string page_folder; // the page's files, served as they stand
    std::string token;
    int port = 0; // the first that is tried; the next hundred when it is taken
};

// Listens. The result is empty, or what is wrong; `port` is the one that it has.
std::string server_open(const server_options& options, int& port);

// Serves until the process ends.
void server_run();

} // namespace view
