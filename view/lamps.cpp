#include "view/lamps.h"

#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <map>
#include <sys/inotify.h>
#include <unistd.h>

#include "view/logs.h"
#include "view/loop.h"

namespace view {

namespace {

constexpr int gather_ms = 15;
constexpr std::uint32_t written = IN_MODIFY | IN_CLOSE_WRITE | IN_MOVED_TO;

struct lamp {
    std::string path;
    std::string value{};
};

std::string root;
const std::vector<page_ref>* p_pages;
std::function<void()> on_gone;
int notify_fd = -1;
int home_watch = -1, log_watch = -1;
std::map<std::string, lamp, std::less<>> all;
std::unique_ptr<loop_timer> p_timer;

// The digits at the head of a file.
std::string digits(const std::string& path)
{
    char text[16] = "";
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    const ssize_t n = fd >= 0 ? read(fd, text, sizeof text - 1) : 0;
    if (fd >= 0)
        close(fd);
    return {text, n > 0 ? std::strspn(text, "0123456789") : 0};
}

void tell_changes()
{
    for (auto& [name, l] : all) {
        std::string value = digits(l.path);
        if (value.empty() || value == l.value) // empty: somebody is about to write it
            continue;
        l.value = std::move(value);
        for (const page_ref& p : *p_pages)
            if (p->wants.contains("lamps"))
                page_tell(*p, "lamp " + name + " " + l.value);
    }
}

void add(const std::string& name, const std::string& folder, const char* file)
{
    const std::string path = folder + "/" + file;
    if (access(path.c_str(), R_OK) != 0)
        return;
    inotify_add_watch(notify_fd, folder.c_str(), written);
    all[name] = {path, digits(path)};
}

void take_event(const inotify_event& event)
{
    if (event.wd == home_watch) {
        if ((event.mask & (IN_DELETE_SELF | IN_MOVE_SELF)) != 0)
            on_gone();
    } else if (event.wd == log_watch) {
        if (event.len != 0 && std::strcmp(event.name, "output") == 0)
            logs_changed("output");
    } else if ((event.mask & written) != 0) {
        loop_timer_want(*p_timer, gather_ms);
    }
}

void take_events()
{
    alignas(inotify_event) char buf[8192];
    ssize_t n;
    while ((n = read(notify_fd, buf, sizeof buf)) > 0)
        for (ssize_t at = 0; at < n;) {
            const auto& event = *reinterpret_cast<const inotify_event*>(buf + at);
            take_event(event);
            at += static_cast<ssize_t>(sizeof event + event.len);
        }
}

} // namespace

void lamps_open(const std::string& dir, const std::vector<page_ref>& pages, std::function<void()> gone)
{
    root = dir;
    p_pages = &pages;
    on_gone = std::move(gone);
    p_timer = std::make_unique<loop_timer>(tell_changes);
}

void lamps_renew()
{
    if (notify_fd >= 0) {
        loop_drop(notify_fd);
        close(notify_fd);
    }
    all.clear();
    notify_fd = inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    if (notify_fd < 0)
        return;
    loop_add(notify_fd, take_events);
    home_watch = inotify_add_watch(notify_fd, root.c_str(), IN_DELETE_SELF | IN_MOVE_SELF);
    log_watch = inotify_add_watch(notify_fd, (root + "/log").c_str(), IN_MODIFY);
    const std::string leds = root + "/root/sys/class/leds";
    if (DIR* const p_dir = opendir(leds.c_str()); p_dir != nullptr) {
        while (const dirent* const p_entry = readdir(p_dir))
            if (p_entry->d_name[0] != '.')
                add(p_entry->d_name, leds + "/" + p_entry->d_name, "brightness");
        closedir(p_dir);
    }
    add("vib", root + "/root/sys/hvt/hvt-vib", "vib");
    for (const page_ref& p : *p_pages)
        if (p->wants.contains("lamps"))
            lamps_show(*p);
}

void lamps_show(page& p)
{
    for (const auto& [name, l] : all)
        page_tell(p, "lamp " + name + " " + l.value);
}

} // namespace view
