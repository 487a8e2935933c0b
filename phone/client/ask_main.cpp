// hvt-ask: sends one request to a phone's control port and prints the answer.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>

#include "client/control_client.h"

namespace {

// A word of the request. The phone may have another working folder, so a picture's path goes as a whole.
std::string word(char** argv, int i)
{
    const std::string text = argv[i];
    const bool is_picture = i == 3 && std::strcmp(argv[2], "screen") == 0 && text.ends_with(".png");
    std::error_code error;
    const std::string whole = is_picture ? std::filesystem::absolute(text, error).string() : text;
    return error ? text : whole;
}

} // namespace

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
        line += (i > 2 ? " " : "") + word(argv, i);
    std::string answer;
    const bool done = control_ask(fd, line, answer);
    if (!done)
        std::fprintf(stderr, "error: %s\n", answer.c_str());
    else if (!answer.empty())
        std::printf("%s\n", answer.c_str());
    return done ? 0 : 1;
}
