// hvt-view: the phone of DIR in a browser. Starts the phone unless it runs, serves the page, prints its
// address and opens a browser where there is one.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <spawn.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "client/control_client.h"
#include "core/script.h"
#include "view/gate.h"
#include "view/hub.h"
#include "view/loop.h"
#include "view/server.h"

namespace {

constexpr int first_port = 8770;

struct options {
    std::string dir{};
    int port = first_port;
    bool opens_browser = true;
};

bool read_options(int argc, char** argv, options& o)
{
    for (int i = 1; i < argc; i++) {
        const std::string arg = argv[i];
        if (arg == "--no-browser") {
            o.opens_browser = false;
        } else if (arg == "--port" && i + 1 < argc) {
            o.port = std::atoi(argv[++i]);
            if (o.port < 1 || o.port > 65535)
                return false;
        } else if (o.dir.empty() && !arg.empty() && arg[0] != '-') {
            std::error_code error;
            o.dir = std::filesystem::absolute(arg, error).lexically_normal().string();
            while (o.dir.size() > 1 && o.dir.ends_with('/'))
                o.dir.pop_back();
        } else {
            return false;
        }
    }
    return !o.dir.empty();
}

// Runs a program to its end; its exit status, -1 when it can't be started.
int run(const std::string& program, const char* first, const std::string& second)
{
    const char* const argv[] = {program.c_str(), first, second.c_str(), nullptr};
    pid_t pid;
    int status;
    if (posix_spawn(&pid, argv[0], nullptr, nullptr, const_cast<char* const*>(argv), environ) != 0 ||
        waitpid(pid, &status, 0) != pid)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool phone_runs(const std::string& dir)
{
    const int fd = control_connect(dir);
    if (fd >= 0)
        close(fd);
    return fd >= 0;
}

// A browser's command line is there for everybody to see: it is given a file of the owner's that leads to the
// address, not the address.
void open_browser(const std::string& dir, const std::string& address)
{
    if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr)
        return;
    const std::string path = dir + "/view/open.html";
    unlink(path.c_str());
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    const std::string text =
        "<!doctype html><meta charset=\"utf-8\"><meta name=\"referrer\" content=\"no-referrer\">"
        "<meta http-equiv=\"refresh\" content=\"0;url=" +
        address + "\"><title>The phone</title>\n";
    const bool whole = fd >= 0 && write(fd, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    if (fd >= 0)
        close(fd);
    const char* const argv[] = {"xdg-open", path.c_str(), nullptr};
    pid_t pid;
    if (whole)
        posix_spawnp(&pid, argv[0], nullptr, nullptr, const_cast<char* const*>(argv), environ);
}

int fail(const std::string& wrong)
{
    std::fprintf(stderr, "hvt: %s\n", wrong.c_str());
    return 1;
}

} // namespace

int main(int argc, char** argv)
{
    options o;
    if (!read_options(argc, argv, o)) {
        std::fputs("usage: hvt-view [--port N] [--no-browser] DIR\n", stderr);
        return 2;
    }
    std::signal(SIGPIPE, SIG_IGN);
    std::error_code error;
    const std::filesystem::path beside = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
    const std::string starter = (beside.parent_path() / "phone/hvt-virtual").string();
    if (!phone_runs(o.dir) && run(starter, "--background", o.dir) != 0)
        return fail("the phone in " + o.dir + " doesn't start");
    const std::string token = view::gate_make_token();
    if (token.empty())
        return fail("the kernel has no randomness for a token");
    if (!view::loop_open() || !view::hub_open({o.dir, starter}))
        return fail(o.dir + "/view can't be made: " + std::strerror(errno));
    int port;
    const std::string wrong = view::server_open({(beside / "page").string(), token, o.port}, port);
    if (!wrong.empty())
        return fail(wrong);
    const std::string address = "http://127.0.0.1:" + std::to_string(port) + "/" + token + "/";
    std::printf(
        "The phone is at %s\nCtrl-C ends the page's server; the phone stays on (\"%s down\" stops it).\n",
        address.c_str(), phone::script().c_str());
    std::fflush(stdout);
    if (o.opens_browser)
        open_browser(o.dir, address);
    view::server_run();
    return 1;
}
