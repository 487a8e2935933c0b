#include "core/home.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <set>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/script.h"

namespace phone {

namespace {

std::string home_dir;
int lock_fd = -1;
std::atomic<bool> first_start;
std::atomic<bool> seeds_wait; // there are some that aren't laid

std::mutex seeds_mutex;                                // guards all below and the laying of a seed
std::map<std::string, std::string, std::less<>> seeds; // by path, not laid yet
std::set<std::string, std::less<>> laid;               // paths of all seeds that this DIR has had, DIR/seeds
bool laid_changed;
std::string seed_trouble;

std::string trouble(const std::string& path, const char* what)
{
    return path + ": can't " + what + ": " + std::strerror(errno);
}

bool make_dirs(const std::string& path)
{
    if (mkdir(path.c_str(), 0777) == 0)
        return true;
    if (errno == EEXIST) {
        struct stat st;
        if (stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode))
            return true;
        errno = ENOTDIR;
        return false;
    }
    if (errno != ENOENT)
        return false;
    const std::size_t slash = path.rfind('/');
    if (slash == path.npos || slash == 0 || !make_dirs(path.substr(0, slash)))
        return false;
    return mkdir(path.c_str(), 0777) == 0 || errno == EEXIST;
}

// The process that the lock file names, 0 when it names none.
int holder()
{
    char text[32] = {};
    const ssize_t n = pread(lock_fd, text, sizeof text - 1, 0);
    int pid = 0;
    return n > 0 && std::sscanf(text, "%d", &pid) == 1 ? pid : 0;
}

std::string lock()
{
    const std::string path = home_path("hvt.pid");
    if (lock_fd < 0)
        lock_fd = open(path.c_str(), O_RDWR | O_CREAT, 0666); // not close-on-exec: see home_lock_fd
    if (lock_fd < 0)
        return trouble(path, "be opened");
    if (flock(lock_fd, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK)
            return trouble(path, "be locked");
        return home_dir + " is already running (process " + std::to_string(holder()) + "); \"" + script() +
               " down " + home_dir + "\" stops it";
    }
    const std::string pid = std::to_string(getpid()) + "\n";
    struct stat st {};
    if (pwrite(lock_fd, pid.data(), pid.size(), 0) != ssize_t(pid.size()) || fstat(lock_fd, &st) != 0 ||
        (st.st_size != ssize_t(pid.size()) && ftruncate(lock_fd, ssize_t(pid.size())) != 0))
        return trouble(path, "be written");
    return {};
}

bool write_whole(const std::string& path, std::string_view text)
{
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0)
        return false;
    const bool written = write(fd, text.data(), text.size()) == ssize_t(text.size());
    const int error = errno;
    if (close(fd) == 0 && written)
        return true;
    if (!written)
        errno = error;
    return false;
}

// What is there already stays: it is the bench's.
void lay_locked(const std::string& path, const std::string& text)
{
    const std::string file = home_path("root") + path;
    if (file.ends_with('/')) {
        if (!make_dirs(file.substr(0, file.size() - 1)))
            seed_trouble = trouble(file, "be made");
        return;
    }
    const std::string half = file + ".seed";
    bool done = write_whole(half, text);
    if (!done && errno == ENOENT && make_dirs(file.substr(0, file.rfind('/'))))
        done = write_whole(half, text);
    if (done && renameat2(AT_FDCWD, half.c_str(), AT_FDCWD, file.c_str(), RENAME_NOREPLACE) == 0)
        return;
    if (!done || errno != EEXIST)
        seed_trouble = trouble(file, "be written");
    unlink(half.c_str());
}

bool is_there(const std::string& path)
{
    struct stat st;
    return lstat(path.c_str(), &st) == 0;
}

// A folder with something in it has to be a phone's, or be prepared to become one: nobody's own files are to
// be mixed with a phone's by a slip. The root folder of a system has a folder `root` too.
std::string check_own()
{
    std::error_code none;
    if (std::filesystem::directory_iterator(home_dir + "/", none) == std::filesystem::directory_iterator())
        return {};
    for (const char* own : {"hvt.pid", "phone.conf", "units"})
        if (is_there(home_path(own)))
            return {};
    if (is_there(home_path("root")) && !is_there(home_path("etc")))
        return {};
    return home_dir +
           ": isn't a phone's folder: it has files, and none of hvt.pid, phone.conf, units and root; "
           "name a new folder, or an empty one";
}

void read_laid()
{
    std::ifstream file(home_path("seeds"));
    for (std::string path; std::getline(file, path);)
        laid.insert(path);
}

bool write_laid_locked()
{
    std::string text;
    for (const std::string& path : laid)
        text += path + "\n";
    const std::string half = home_path("seeds.new");
    return write_whole(half, text) && rename(half.c_str(), home_path("seeds").c_str()) == 0;
}

} // namespace

std::string home_take(const std::string& dir)
{
    home_dir = dir;
    while (home_dir.size() > 1 && home_dir.ends_with('/'))
        home_dir.pop_back();
    if (!make_dirs(home_dir))
        return trouble(home_dir, "be made");
    if (std::string wrong = check_own(); !wrong.empty())
        return wrong;
    if (std::string wrong = lock(); !wrong.empty())
        return wrong;
    struct stat st;
    first_start = stat(home_path("log").c_str(), &st) != 0;
    for (const char* below : {"root", "units", "card"})
        if (!make_dirs(home_path(below)))
            return trouble(home_path(below), "be made");
    if (!first_start && (!S_ISDIR(st.st_mode) || access(home_path("log").c_str(), W_OK | X_OK) != 0)) {
        errno = S_ISDIR(st.st_mode) ? errno : ENOTDIR;
        return trouble(home_path("log"), "be used");
    }
    if (!first_start)
        read_laid();
    return {};
}

bool home_is_first_start()
{
    return first_start;
}

void home_seed(std::string_view path, std::string_view text)
{
    const std::lock_guard lock(seeds_mutex);
    if (!laid.emplace(path).second && !first_start)
        return;
    laid_changed = true;
    seeds.emplace(path, text);
    seeds_wait = true;
}

void home_lay(std::string_view path)
{
    if (!seeds_wait)
        return;
    const std::lock_guard lock(seeds_mutex);
    if (const auto exact = seeds.find(path); exact != seeds.end()) {
        lay_locked(exact->first, exact->second);
        seeds.erase(exact);
    }
    // A folder that only seeds would make has to be there for its other files.
    const std::string folder(path.substr(0, path.rfind('/') + 1));
    if (const auto next = seeds.lower_bound(folder); next != seeds.end() && next->first.starts_with(folder))
        make_dirs(home_path("root") + folder.substr(0, folder.size() - 1));
    const std::string below = std::string(path) + (path.ends_with('/') ? "" : "/");
    for (auto it = seeds.lower_bound(below); it != seeds.end() && it->first.starts_with(below);) {
        lay_locked(it->first, it->second);
        it = seeds.erase(it);
    }
}

bool home_seed_waits(std::string_view path, bool beginning)
{
    const std::lock_guard lock(seeds_mutex);
    if (seeds.contains(path))
        return true;
    const std::string part = std::string(path) + (beginning || path.ends_with('/') ? "" : "/");
    const auto next = seeds.lower_bound(part);
    return next != seeds.end() && next->first.starts_with(part);
}

std::string home_lay_seeds()
{
    for (;;) {
        const std::lock_guard lock(seeds_mutex);
        if (!seed_trouble.empty())
            return seed_trouble;
        if (seeds.empty())
            break;
        lay_locked(seeds.begin()->first, seeds.begin()->second);
        seeds.erase(seeds.begin());
    }
    const std::lock_guard lock(seeds_mutex);
    seeds_wait = false;
    if (laid_changed && !write_laid_locked())
        return trouble(home_path("seeds"), "be written");
    // The log folder comes last: it tells the next start that the seeds are whole.
    if (first_start && !make_dirs(home_path("log")))
        return trouble(home_path("log"), "be made");
    first_start = false;
    return {};
}

std::string home_path(std::string_view below)
{
    return home_dir + "/" + std::string(below);
}

bool home_is_gone()
{
    struct stat st {};
    return fstat(lock_fd, &st) == 0 && st.st_nlink == 0;
}

int home_lock_fd()
{
    return lock_fd;
}

void home_inherit_lock(int fd)
{
    lock_fd = fd;
}

} // namespace phone
