#include "sdcard/sdcard.h"

#include "check/check.h"

namespace {

const sdcard_co_functions* sdcard_co;

// Calls a slot of the driver's table; an empty one does nothing.
template <class... Args>
int call(int (*sdcard_co_functions::*slot)(Args...), Args... args)
{
    HVT_CHECK(sdcard_co != nullptr);
    const auto fn = sdcard_co->*slot;
    return fn != nullptr ? fn(args...) : 0;
}

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
    return call(&sdcard_co_functions::detect);
}

int sdcard_get_size()
{
    return call(&sdcard_co_functions::get_size);
}

int sdcard_list_folder_inf(const char* path, char* p_buf, std::size_t size)
{
    return call(&sdcard_co_functions::list, path, p_buf, size);
}

int sdcard_read_file(const char* path, char* p_buf, std::size_t size)
{
    return call(&sdcard_co_functions::read, path, p_buf, size);
}

int sdcard_write_file(const char* path, const char* p_data, std::size_t size)
{
    return call(&sdcard_co_functions::write, path, p_data, size);
}

int sdcard_delete_file(const char* path)
{
    return call(&sdcard_co_functions::delete_file, path);
}

int sdcard_erase()
{
    return call(&sdcard_co_functions::erase);
}

int sdcard_mount()
{
    return call(&sdcard_co_functions::mount);
}

int sdcard_unmount()
{
    return call(&sdcard_co_functions::unmount);
}

int sdcard_format()
{
    return call(&sdcard_co_functions::format);
}
