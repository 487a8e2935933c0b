// The removable memory card, as its test sees it: detect, mount, list, read, write, erase, format. A driver
// does the work. The card is left unmounted between operations. Needs the driver's table attached.
#pragma once

#include <cstddef>

struct sdcard_co_functions {
    int (*detect)();
    int (*get_size)();
    int (*list)(const char* path, char* p_buf, std::size_t size);
    int (*read)(const char* path, char* p_buf, std::size_t size);
    int (*write)(const char* path, const char* p_data, std::size_t size);
    int (*erase)();
    int (*delete_file)(const char* path);
    int (*mount)();
    int (*unmount)();
    int (*format)();
};

void sdcard_init();

// Puts a driver's table in force and gives the former one.
const sdcard_co_functions* sdcard_cmd_co_attach(const sdcard_co_functions* p_co);

int sdcard_detect_sd(); // 1 a card is there, 0 none, -1 it can't be told
int sdcard_get_size();  // MiB, 0 if it can't be told

// The rest: 1 on success, 0 otherwise. Paths are on the card, with or without a slash in front. A buffer gets
// at most `size` characters and no NUL when they fill it.
int sdcard_list_folder_inf(const char* path, char* p_buf, std::size_t size); // names, "," between them
int sdcard_read_file(const char* path, char* p_buf, std::size_t size);
int sdcard_write_file(const char* path, const char* p_data, std::size_t size);
int sdcard_delete_file(const char* path);

// Zeroes the whole card, its file system included; takes as long as that takes.
int sdcard_erase();

int sdcard_mount();
int sdcard_unmount();

// Makes a new file system of the size's kind: 1 to 1999 MiB FAT 16, 2001 to 31999 MiB FAT 32.
int sdcard_format();
