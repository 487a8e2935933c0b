// Buffered files behind handles, directory walks, and gzip helpers. For modules that deal in whole files; not
// for nodes and attributes of the kernel. Results are 1 for success and 0 for failure unless told otherwise.
#pragma once

#include <cstddef>
#include <cstdint>

constexpr std::uint8_t FILE_ATTR_DIR = 0x40;

// What a walk or an open tells of a file.
struct file_item {
    std::uint8_t attr;   // FILE_ATTR_DIR for a directory, else 0
    char name[255];      // behind the last slash
    char ext[256];       // behind the last dot of the name; empty if there is none
    std::uint32_t size;  // bytes
    std::uint32_t spare; // 0
};

struct file_find; // a directory walk
struct file_hnd;  // an open file

void file_init();

int file_rm(const char* path);
int file_mkdir(const char* path);

// Fills the item; 0 if there is no such file.
int file_exist(const char* path, file_item* p_item);

// A walk over a directory, "." and ".." included, of which only the name is filled in. A handle is the
// caller's until file_fnd_close; null if the directory can't be read. file_fnd_next gives 0 at the end, and
// file_fnd_close 0 when that wasn't the directory's end but a failure.
file_find* file_fnd_first(const char* path, file_item* p_item);
int file_fnd_next(file_find* p_hnd, file_item* p_item);
int file_fnd_close(file_find* p_hnd);

// `mode` as for fopen. A handle is the caller's until file_close; null on failure. file_close gives 0 when
// what was written didn't reach the file.
file_hnd* file_open(const char* path, const char* mode);
int file_close(file_hnd* p_hnd);

// As fread, fwrite and fgets.
std::size_t file_read(void* buf, std::size_t size, std::size_t n, file_hnd* p_hnd);
std::size_t file_write(const void* buf, std::size_t size, std::size_t n, file_hnd* p_hnd);
char* file_gets(char* buf, int n, file_hnd* p_hnd);

// `whence` 0 start, 1 current, 2 end: the result of fseek, 0 for done; 1 for any other `whence`.
int file_seek(file_hnd* p_hnd, long off, int whence);
long file_tell(file_hnd* p_hnd);
void file_rewind(file_hnd* p_hnd);
long file_length(file_hnd* p_hnd); // bytes; the position is the start afterwards; -1 on failure

// Replaces the content of the file by the text.
int file_write_string(const char* path, const char* text);

// Appends `src` as one more gzip member, level 9, to `dst`: the size of `dst` after it, 0 on failure. `src`
// stays.
std::size_t file_compress(const char* src, const char* dst);

// Writes what the gzip file `src` holds, all its members, to `dst`: the size of `dst`, 0 on failure.
std::size_t file_uncompress(const char* src, const char* dst);
