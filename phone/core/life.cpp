#include "core/life.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "core/clock.h"
#include "core/conf.h"
#include "core/control.h"
#include "core/home.h"
#include "core/log.h"
#include "core/parts.h"
#include "core/record.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr const char* handed_on = "HVT_PHONE_HANDED_ON"; // "lock,master,slave": descriptors over a restart

char** own_argv;
std::atomic<int> starter = -1; // who waits for a start in the background
life_port station_port;
int port_master = -1; // handed on by the program before a restart
int port_slave = -1;

// True after a restart.
bool take_up_handed_on()
{
    const char* const text = std::getenv(handed_on);
    if (text == nullptr)
        return false;
    int lock;
    if (std::sscanf(text, "%d,%d,%d", &lock, &port_master, &port_slave) == 3)
        home_inherit_lock(lock);
    unsetenv(handed_on);
    return true;
}

// SIGTERM and SIGINT end the phone as pulling its battery does, with the logs whole.
void signal_loop()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGHUP);
    int signal;
    while (sigwait(&set, &signal) != 0) {
    }
    life_off();
}

void block_signals()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGTERM);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGHUP);
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
}

// A phone whose folder is deleted has nothing to live in; it would go on unseen.
void home_loop()
{
    while (!home_is_gone())
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    std::fprintf(stderr, "hvt: %s has been deleted; the phone ends\n", home_path("").c_str());
    station_port.stop();
    _exit(1);
}

// Leaves the terminal to the caller and waits there for the child's word; only the child returns.
std::string go_background()
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return std::string("no pipe can be had: ") + std::strerror(errno);
    const pid_t child = fork();
    if (child < 0)
        return std::string("no process can be had: ") + std::strerror(errno);
    if (child == 0) {
        close(ends[0]);
        starter = ends[1];
        setsid();
        return {};
    }
    close(ends[1]);
    char word;
    ssize_t n;
    while ((n = read(ends[0], &word, 1)) < 0 && errno == EINTR) {
    }
    if (n == 1)
        _exit(0);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status))
        std::fprintf(stderr, "hvt: the program died at its start, by signal %d\n", WTERMSIG(status));
    else if (WEXITSTATUS(status) == 0)
        std::fprintf(stderr, "hvt: the phone powered itself off at its start\n");
    _exit(WIFEXITED(status) && WEXITSTATUS(status) != 0 ? WEXITSTATUS(status) : 1);
}

// Standard output and error of a phone in the background go to DIR/log/output.
void leave_terminal()
{
    const int null = open("/dev/null", O_RDWR | O_CLOEXEC);
    const int out = open(home_path("log/output").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    dup2(null, 0);
    dup2(out >= 0 ? out : null, 1);
    dup2(out >= 0 ? out : null, 2);
}

void tell_starter()
{
    while (!clock_loop_runs())
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    leave_terminal();
    [[maybe_unused]] const ssize_t n = write(starter, "1", 1);
    close(starter);
    starter = -1;
}

std::string boot(const start_options& options)
{
    std::string wrong = home_take(options.dir);
    if (!wrong.empty())
        return wrong;
    clock_attach();
    for (const phone_part& part : phone_parts)
        if (part.attach != nullptr)
            part.attach();
    if (wrong = conf_read(); !wrong.empty())
        return wrong;
    for (const phone_part& part : phone_parts)
        if (part.seed != nullptr)
            part.seed();
    for (const phone_part& part : phone_parts)
        if (part.start != nullptr)
            part.start();
    if (port_master >= 0)
        station_port.inherit(port_master, port_slave);
    if (wrong = station_port.start(); !wrong.empty())
        return wrong;
    clock_set_speed(options.speed);
    if (wrong = conf_run_words(); !wrong.empty())
        return wrong;
    return {};
}

// What goes on beside the start of the program: the seeds of a new phone, the control port, and the word to
// who waits for a start in the background. Nobody outside sees a phone that isn't whole.
void finish_start()
{
    std::string wrong = home_lay_seeds();
    if (wrong.empty())
        wrong = control_start();
    if (!wrong.empty()) {
        std::fprintf(stderr, "hvt: %s\n", wrong.c_str());
        station_port.stop();
        _exit(1);
    }
    if (starter >= 0)
        tell_starter();
}

} // namespace

void life_port_attach(const life_port& port)
{
    station_port = port;
}

std::string life_on(const start_options& options, char** argv)
{
    own_argv = argv;
    block_signals();
    const bool again = take_up_handed_on();
    if (options.background && !again)
        if (std::string wrong = go_background(); !wrong.empty())
            return wrong;
    std::string wrong = boot(options);
    if (!wrong.empty())
        return wrong;
    std::thread(signal_loop).detach();
    if (!options.outlives_folder)
        std::thread(home_loop).detach();
    std::thread(finish_start).detach();
    return {};
}

void life_program_stopped(const char* expr, const char* file, int line)
{
    const char* const slash = std::strrchr(file, '/');
    const std::string text = std::string("the program stopped itself: ") + expr + ", " +
                             (slash != nullptr ? slash + 1 : file) + " line " + std::to_string(line);
    log_line(log_kmsg, "phone: " + text);
    log_flush();
    if (starter >= 0)
        std::fprintf(stderr, "hvt: %s\n", text.c_str());
}

void life_off()
{
    record_end("off");
    station_port.stop();
    unlink(home_path("control").c_str());
    log_line(log_kmsg, "phone: power off");
    log_flush();
    _exit(0);
}

void life_restart()
{
    record_end("reboots");
    log_line(log_kmsg, "phone: restart");
    log_flush();
    int master;
    int slave;
    station_port.hand_on(&master, &slave);
    // Everything else is close-on-exec or of no use to the program that follows.
    const int lock = home_lock_fd();
    for (const int fd : {lock, master, slave})
        fcntl(fd, F_SETFD, 0);
    char text[64];
    std::snprintf(text, sizeof text, "%d,%d,%d", lock, master, slave);
    setenv(handed_on, text, 1);
    execv("/proc/self/exe", own_argv);
    std::fprintf(stderr, "hvt: the phone can't restart: %s\n", std::strerror(errno));
    _exit(1);
}

} // namespace phone
