#include "core/files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <mutex>
#include <set>
#include <sys/eventfd.h>
#include <unistd.h>
#include <unordered_map>
#include <vector>

#include "core/clock.h"
#include "core/control.h"
#include "core/files_table.h"
#include "core/home.h"
#include "core/text.h"
#include "core/toolbox.h"
#include "core/watch.h"

namespace phone {

namespace {

constexpr int link_limit = 40;

struct text_hash : std::hash<std::string_view> {
    using is_transparent = void;
};

// Written before the program runs, as the next three.
std::unordered_map<std::string, const node*, text_hash, std::equal_to<>> nodes;
std::map<std::string, const attribute*, std::less<>> attributes;
std::set<std::string, std::less<>> lacking;
std::set<std::string, std::less<>> optional_paths;

std::mutex mounts_mutex;
std::map<std::string, std::string, std::less<>> mounts; // folders of the host by the phone's

std::mutex table_mutex;
std::vector<std::shared_ptr<open_file>> table; // by descriptor

bool is_kernel_path(std::string_view path)
{
    return path.starts_with("/sys/") || path.starts_with("/proc/") || path.starts_with("/dev/");
}

void enter(std::shared_ptr<open_file> file)
{
    const std::lock_guard lock(table_mutex);
    const auto at = static_cast<std::size_t>(file->fd);
    if (table.size() <= at)
        table.resize(at + 1);
    table[at] = std::move(file);
}

// Where a resolved path lies: below root, or in the folder that is mounted there.
std::string place_of(const std::string& path)
{
    const std::lock_guard lock(mounts_mutex);
    for (const auto& [dir, host] : mounts)
        if (path.starts_with(dir) && (path.size() == dir.size() || path[dir.size()] == '/'))
            return host + path.substr(dir.size());
    return home_path("root") + path;
}

int open_node(const std::shared_ptr<open_file>& file, int flags)
{
    file->fd = file->p_node->open != nullptr ? file->p_node->open(*file, flags)
                                             : eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    return file->fd;
}

int open_plain(const std::shared_ptr<open_file>& file, int flags, mode_t mode)
{
    if (file->attribute)
        flags &= ~(O_CREAT | O_EXCL);
    if (const auto found = attributes.find(file->path); found != attributes.end())
        if (found->second->before_read != nullptr && (flags & O_ACCMODE) != O_WRONLY)
            found->second->before_read(file->path);
    const std::string host = host_path(file->path);
    if (host.empty())
        return -1;
    file->fd = ::open(host.c_str(), flags | O_CLOEXEC, mode);
    if (file->fd < 0 && errno == ENOENT && is_kernel_path(file->path) && !optional_paths.contains(file->path))
        strange("open " + file->path);
    return file->fd;
}

ssize_t write_attribute(open_file& file, const void* buf, std::size_t size)
{
    if (ftruncate(file.fd, 0) != 0)
        return -1;
    const ssize_t n = pwrite(file.fd, buf, size, 0);
    const auto found = attributes.find(file.path);
    if (n > 0 && found != attributes.end() && found->second->after_write != nullptr)
        found->second->after_write(file.path, {static_cast<const char*>(buf), static_cast<std::size_t>(n)});
    return n;
}

std::string word_files(request& rq)
{
    const std::lock_guard lock(table_mutex);
    for (const auto& file : table)
        if (file != nullptr && file->path.find(rq.rest) != std::string::npos)
            rq.answer += (rq.answer.empty() ? "" : "\n") + file->path;
    return {};
}

} // namespace

void node_add(std::string_view path, const node* p_node)
{
    nodes[std::string(path)] = p_node;
}

void attribute_add(std::string_view path, const attribute* p_attribute)
{
    attributes[std::string(path)] = p_attribute;
}

void path_without(std::string_view path)
{
    lacking.emplace(path);
}

void path_optional(std::string_view path)
{
    optional_paths.emplace(path);
}

bool path_is_lacking(std::string_view path)
{
    return lacking.contains(path);
}

bool path_is_known(std::string_view path, bool beginning)
{
    const auto fits = [&](std::string_view known) {
        return beginning ? known.starts_with(path) : known == path;
    };
    constexpr std::string_view tools_folder = "/system/bin/";
    if (std::ranges::any_of(nodes, [&](const auto& n) { return fits(n.first); }) ||
        std::ranges::any_of(attributes, [&](const auto& a) { return fits(a.first); }) ||
        std::ranges::any_of(optional_paths, fits) || home_seed_waits(path, beginning) ||
        (path.starts_with(tools_folder) && toolbox_has(path.substr(tools_folder.size()))))
        return true;
    const std::string host = host_path(path, false);
    struct stat st;
    if (!host.empty() && lstat(host.c_str(), &st) == 0)
        return true;
    const std::size_t name_at = host.rfind('/') + 1;
    std::error_code none;
    for (const auto& entry :
         std::filesystem::directory_iterator(beginning ? host.substr(0, name_at) : "", none))
        if (entry.path().filename().string().starts_with(host.substr(name_at)))
            return true;
    return false;
}

void path_mount(std::string_view dir, const std::string& host)
{
    const std::lock_guard lock(mounts_mutex);
    if (host.empty())
        mounts.erase(std::string(dir));
    else
        mounts[std::string(dir)] = host;
}

std::string host_path(std::string_view path, bool follow_last)
{
    const std::string top = home_path("root");
    std::string done; // below top, resolved
    std::vector<std::string> todo;
    const auto push = [&todo](std::string_view text) {
        const auto parts = split(text, '/');
        for (auto it = parts.rbegin(); it != parts.rend(); ++it)
            if (!it->empty() && *it != ".")
                todo.emplace_back(*it);
    };
    push(path);
    for (int links = 0; !todo.empty();) {
        const std::string part = std::move(todo.back());
        todo.pop_back();
        if (part == "..") {
            done.erase(done.empty() ? 0 : done.rfind('/'));
            continue;
        }
        const std::string here = top + done + "/" + part;
        char target[4096];
        const ssize_t n = follow_last || !todo.empty() ? readlink(here.c_str(), target, sizeof target) : -1;
        if (n < 0) {
            done += "/" + part;
            continue;
        }
        if (++links > link_limit) {
            errno = ELOOP;
            return {};
        }
        if (target[0] == '/')
            done.clear();
        push({target, static_cast<std::size_t>(n)});
    }
    home_lay(done);
    return place_of(done);
}

std::shared_ptr<open_file> file_of(int fd)
{
    const std::lock_guard lock(table_mutex);
    const auto at = static_cast<std::size_t>(fd);
    return fd >= 0 && at < table.size() ? table[at] : nullptr;
}

int files_open(const char* path, int flags, mode_t mode)
{
    const std::string_view name(path);
    const auto found = nodes.find(name);
    const node* const p_node = found != nodes.end() ? found->second : nullptr;
    if (path_is_lacking(name) ||
        (p_node != nullptr && p_node->present != nullptr && !p_node->present(name))) {
        errno = ENOENT;
        return -1;
    }
    auto file = std::make_shared<open_file>();
    file->path = name;
    file->attribute = is_kernel_path(name);
    file->p_node = p_node;
    const int fd = file->p_node != nullptr ? open_node(file, flags) : open_plain(file, flags, mode);
    if (fd >= 0)
        enter(std::move(file));
    return fd;
}

int files_close(int fd)
{
    std::shared_ptr<open_file> file;
    {
        const std::lock_guard lock(table_mutex);
        const auto at = static_cast<std::size_t>(fd);
        if (fd >= 0 && at < table.size())
            file.swap(table[at]);
    }
    if (file != nullptr && file->p_node != nullptr && file->p_node->close != nullptr)
        file->p_node->close(*file);
    const int result = ::close(fd);
    clock_descriptor_closed(fd);
    return result;
}

ssize_t files_read(open_file* p_file, int fd, void* buf, std::size_t size)
{
    if (p_file != nullptr && p_file->p_node != nullptr && p_file->p_node->read != nullptr)
        return p_file->p_node->read(*p_file, buf, size);
    return ::read(fd, buf, size);
}

ssize_t files_write(open_file* p_file, int fd, const void* buf, std::size_t size)
{
    if (p_file != nullptr && p_file->p_node != nullptr && p_file->p_node->write != nullptr)
        return p_file->p_node->write(*p_file, buf, size);
    if (p_file != nullptr && p_file->p_node == nullptr && p_file->attribute)
        return write_attribute(*p_file, buf, size);
    return ::write(fd, buf, size);
}

int files_enter(const std::shared_ptr<open_file>& file)
{
    enter(file);
    return file->fd;
}

int files_enter(int fd, std::string_view name)
{
    auto file = std::make_shared<open_file>();
    file->fd = fd;
    file->path = name;
    file->p_node = nullptr;
    file->attribute = false;
    return files_enter(file);
}

void files_attach()
{
    word_add("files", "[TEXT]", "what the program has open, or what of it has TEXT in its path", word_files);
}

bool node_exists(std::string_view path)
{
    return nodes.contains(path) && !path_is_lacking(path);
}

bool file_read(std::string_view path, std::string& text)
{
    const int fd = files_open(std::string(path).c_str(), O_RDONLY | O_CLOEXEC, 0);
    if (fd < 0)
        return false;
    const auto file = file_of(fd);
    char part[4096];
    ssize_t n;
    text.clear();
    while ((n = files_read(file.get(), fd, part, sizeof part)) > 0)
        text.append(part, static_cast<std::size_t>(n));
    files_close(fd);
    return n == 0;
}

bool file_write(std::string_view path, std::string_view text, bool append)
{
    const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | (append ? O_APPEND : O_TRUNC);
    const int fd = files_open(std::string(path).c_str(), flags, 0666);
    if (fd < 0)
        return false;
    const auto file = file_of(fd);
    bool written = true;
    while (written && !text.empty()) {
        const ssize_t n = files_write(file.get(), fd, text.data(), text.size());
        written = n > 0;
        text.remove_prefix(n > 0 ? static_cast<std::size_t>(n) : 0);
    }
    return files_close(fd) == 0 && written;
}

} // namespace phone
