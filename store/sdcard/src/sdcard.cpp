#include "sdcard/sdcard.h"

#include "callout/callout.h"

namespace {

const sdcard_co_functions* sdcard_co;

} // namespace

void sdcard_init()
{
    sdcard_co = nullptr;
}

const sdcard_co_functions* sdcard_cmd_co_attach(const sdcard_co_functions* p_co)
{
    const sdcard_co_functions* p_old = sdcard_co;
    sdcard_co = p_co;
    return p_old;
}

int sdcard_detect_sd()
{
    return callout(sdcard_co, &sdcard_co_functions::detect, 0);
}

int sdcard_get_size()
{
    return callout(sdcard_co, &sdcard_co_functions::get_size, 0);
}

int sdcard_list_folder_inf(const char* path, char* p_buf, std::size_t size)
{
    return callout(sdcard_co, &sdcard_co_functions::list, 0, path, p_buf, size);
}

int sdcard_read_file(const char* path, char* p_buf, std::size_t size)
{
    return callout(sdcard_co, &sdcard_co_functions::read, 0, path, p_buf, size);
}

int sdcard_write_file(const char* path, const char* p_data, std::size_t size)
{
    return callout(sdcard_co, &sdcard_co_functions::write, 0, path, p_data, size);
}

int sdcard_delete_file(const char* path)
{
    return callout(sdcard_co, &sdcard_co_functions::delete_file, 0, path);
}

int sdcard_erase()
{
    return callout(sdcard_co, &sdcard_co_functions::erase, 0);
}

int sdcard_mount()
{
    return callout(sdcard_co, &sdcard_co_functions::mount, 0);
}

int sdcard_unmount()
{
    return callout(sdcard_co, &sdcard_co_functions::unmount, 0);
}

int sdcard_format()
{
    return callout(sdcard_co, &sdcard_co_functions::format, 0);
}
