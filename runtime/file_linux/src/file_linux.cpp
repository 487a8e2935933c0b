#include "file_linux/file_linux.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "check/check.h"
#include "heap/heap.h"
#include "plat/plat.h"

constexpr std::size_t PATH_BYTES = 255; // a path of 254 characters

struct file_find {
    char path[PATH_BYTES];
    unsigned given; // entries so far
    DIR* dir;
    bool failed;
};

struct file_hnd {
    char path[PATH_BYTES];
    file_item item; // at the time of opening
    FILE* stream;
};

namespace {

// Copies as much of `text` as fits with its NUL.
void copy_text(char* p_dst, std::size_t size, const char* text)
{
    const std::size_t length = std::min(std::strlen(text), size - 1);
    std::memcpy(p_dst, text, length);
    p_dst[length] = '\0';
}

void name_item(const char* path, file_item* p_item)
{
    *p_item = {};
    const char* slash = std::strrchr(path, '/');
    const char* name = slash != nullptr ? slash + 1 : path;
    copy_text(p_item->name, sizeof p_item->name, name);
    const char* dot = std::strrchr(name, '.');
    if (dot != nullptr)
        copy_text(p_item->ext, sizeof p_item->ext, dot + 1);
}

// The next entry of an open walk.
int next_item(file_find* p_hnd, file_item* p_item)
{
    errno = 0; // the one way to tell a failure from the end
    const dirent* p_entry = plat_readdir(p_hnd->dir);
    if (p_entry == nullptr) {
        p_hnd->failed = errno != 0;
        return 0;
    }
    p_hnd->given++;
    if (std::strcmp(p_entry->d_name, ".") == 0 || std::strcmp(p_entry->d_name, "..") == 0) {
        *p_item = {};
        copy_text(p_item->name, sizeof p_item->name, p_entry->d_name);
        return 1;
    }
    std::string path = p_hnd->path;
    if (!path.ends_with('/'))
        path += '/';
    path += p_entry->d_name;
    if (!file_exist(path.c_str(), p_item))
        name_item(path.c_str(), p_item); // gone meanwhile, or a link to nowhere: the name is there
    return 1;
}

} // namespace

void file_init() {}

int file_rm(const char* path)
{
    if (plat_unlink(path) == 0)
        return 1;
    return plat_rmdir(path) == 0;
}

int file_mkdir(const char* path)
{
    return plat_mkdir(path, 0777) == 0;
}

int file_exist(const char* path, file_item* p_item)
{
    struct stat st;
    if (plat_stat(path, &st) != 0)
        return 0;
    name_item(path, p_item);
    p_item->attr = S_ISDIR(st.st_mode) ? FILE_ATTR_DIR : 0;
    p_item->size = static_cast<std::uint32_t>(st.st_size);
    return 1;
}

file_find* file_fnd_first(const char* path, file_item* p_item)
{
    DIR* dir = std::strlen(path) < PATH_BYTES ? plat_opendir(path) : nullptr;
    if (dir == nullptr)
        return nullptr;
    auto* p_hnd = static_cast<file_find*>(std::calloc(1, sizeof(file_find)));
    HVT_CHECK(p_hnd != nullptr);
    copy_text(p_hnd->path, sizeof p_hnd->path, path);
    p_hnd->dir = dir;
    if (next_item(p_hnd, p_item))
        return p_hnd;
    file_fnd_close(p_hnd);
    return nullptr;
}

int file_fnd_next(file_find* p_hnd, file_item* p_item)
{
    return next_item(p_hnd, p_item);
}

int file_fnd_close(file_find* p_hnd)
{
    const heap_ptr<file_find> owner(p_hnd);
    const bool failed = p_hnd->failed;
    plat_closedir(p_hnd->dir);
    return !failed;
}

file_hnd* file_open(const char* path, const char* mode)
{
    FILE* stream = std::strlen(path) < PATH_BYTES ? plat_fopen(path, mode) : nullptr;
    if (stream == nullptr)
        return nullptr;
    auto* p_hnd = static_cast<file_hnd*>(std::calloc(1, sizeof(file_hnd)));
    HVT_CHECK(p_hnd != nullptr);
    copy_text(p_hnd->path, sizeof p_hnd->path, path);
    file_exist(path, &p_hnd->item);
    p_hnd->stream = stream;
    return p_hnd;
}

int file_close(file_hnd* p_hnd)
{
    const heap_ptr<file_hnd> owner(p_hnd);
    const bool bad = std::ferror(p_hnd->stream) != 0;
    const bool closed = std::fclose(p_hnd->stream) == 0;
    return closed && !bad;
}

std::size_t file_read(void* buf, std::size_t size, std::size_t n, file_hnd* p_hnd)
{
    return std::fread(buf, size, n, p_hnd->stream);
}

std::size_t file_write(const void* buf, std::size_t size, std::size_t n, file_hnd* p_hnd)
{
    return std::fwrite(buf, size, n, p_hnd->stream);
}

char* file_gets(char* buf, int n, file_hnd* p_hnd)
{
    return std::fgets(buf, n, p_hnd->stream);
}

int file_seek(file_hnd* p_hnd, long off, int whence)
{
    switch (whence) {
    case 0:
        return std::fseek(p_hnd->stream, off, SEEK_SET);
    case 1:
        return std::fseek(p_hnd->stream, off, SEEK_CUR);
    case 2:
        return std::fseek(p_hnd->stream, off, SEEK_END);
    default:
        return 1;
    }
}

long file_tell(file_hnd* p_hnd)
{
    return std::ftell(p_hnd->stream);
}

void file_rewind(file_hnd* p_hnd)
{
    std::rewind(p_hnd->stream);
}

long file_length(file_hnd* p_hnd)
{
    const long length = file_seek(p_hnd, 0, 2) == 0 ? file_tell(p_hnd) : -1;
    file_rewind(p_hnd);
    return length;
}

int file_write_string(const char* path, const char* text)
{
    file_hnd* p_hnd = file_open(path, "wt");
    if (p_hnd == nullptr)
        return 0;
    const std::size_t size = std::strlen(text);
    const bool written = file_write(text, 1, size, p_hnd) == size;
    return file_close(p_hnd) && written;
}
