#include "view/logs.h"

#include <algorithm>
#include <fcntl.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

#include "view/loop.h"

namespace view {

namespace {

constexpr int gather_ms = 15;
constexpr int busy_ms = 150;            // between looks while a log runs
constexpr std::size_t piece = 32 << 10; // so much of one look is shown

struct follower {
    ino_t inode = 0;
    std::size_t at = 0; // what lies before has been told
    bool stale = false;
};

std::string folder;
const std::vector<page_ref>* p_pages;
std::map<std::string, follower, std::less<>> followers;
std::unique_ptr<loop_timer> p_timer;

bool is_name(std::string_view name)
{
    return !name.empty() && name.size() < 32 &&
           std::ranges::all_of(name, [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'); });
}

bool is_wanted(std::string_view name)
{
    const std::string wish = "log " + std::string(name);
    return std::ranges::any_of(*p_pages, [&](const page_ref& p) { return p->wants.contains(wish); });
}

// Whole lines from `f.at` on, the newest if there are too many; moves on behind them.
std::string read_on(std::string_view name, follower& f)
{
    const int fd = open((folder + std::string(name)).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (fd < 0)
        return {};
    struct stat st {};
    fstat(fd, &st);
    const auto size = static_cast<std::size_t>(st.st_size);
    if (st.st_ino != f.inode || size < f.at) // cut: it begins anew
        f.at = f.inode == 0 || size < piece ? 0 : size - piece;
    f.inode = st.st_ino;
    const bool skips = size - f.at > piece;
    const std::size_t from = skips ? size - piece : f.at;
    std::string text(size - from, '\0');
    const ssize_t n = pread(fd, text.data(), text.size(), static_cast<off_t>(from));
    close(fd);
    text.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    const std::size_t end = text.rfind('\n');
    text.resize(end == text.npos ? 0 : end + 1);
    f.at = from + text.size();
    if (skips)
        text.erase(0, std::min(text.size(), text.find('\n') + 1)).insert(0, "...\n");
    return text;
}

void look()
{
    for (auto& [name, f] : followers) {
        if (!f.stale)
            continue;
        f.stale = false;
        if (!is_wanted(name))
            continue;
        const std::string text = read_on(name, f);
        if (text.empty())
            continue;
        for (const page_ref& p : *p_pages)
            if (p->wants.contains("log " + name))
                page_tell_some(*p, "log " + name + "\n" + text);
        if (text.size() > piece / 8)
            loop_timer_want(*p_timer, busy_ms);
    }
}

} // namespace

void logs_open(const std::string& dir, const std::vector<page_ref>& pages)
{
    folder = dir + "/log/";
    p_pages = &pages;
    p_timer = std::make_unique<loop_timer>(look);
}

void logs_changed(std::string_view name)
{
    const auto found = followers.find(name);
    if (found == followers.end())
        return;
    found->second.stale = true;
    loop_timer_want(*p_timer, gather_ms);
}

void logs_show(page& p, std::string_view name)
{
    if (!is_name(name))
        return;
    follower& f = followers[std::string(name)];
    follower tail = f;
    tail.at = 0;
    const std::string text = read_on(name, tail);
    page_tell(p, "tail " + std::string(name) + "\n" + text);
    if (!is_wanted(name) || f.inode == 0)
        f = tail; // nobody else follows it
}

} // namespace view
