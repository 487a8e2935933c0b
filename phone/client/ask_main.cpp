// hvt-ask: sends one request to a phone's control port and prints the answer.
#include <cstdio>
#include <string>

#include "client/control_client.h"

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fputs("usage: hvt phone DIR WORDS...   (\"hvt phone DIR help\" lists the words)\n", stderr);
        return 2;
    }
    const int fd = control_connect(argv[1]);
    if (fd < 0) {
        control_say_why(argv[1]);
        return 1;
    }
    std::string line;
    for (int i = 2; i < argc; i++)
        line += (i > 2 ? " " : "") + std::string(argv[i]);
    std::string answer;
    const bool done = control_tell_folder(fd) && control_ask(fd, line, answer);
    if (!done)
        std::fprintf(stderr, "error: %s\n", answer.c_str());
    else if (!answer.empty())
        std::printf("%s\n", answer.c_str());
    return done ? 0 : 1;
}
