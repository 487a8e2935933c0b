#include "camera_durnspire/drns.h"

#include <cstring>
#include <dlfcn.h>

#include "plat/plat.h"

namespace {

constexpr int FAILED = -1;

drns_client* (*create)();
int (*alloc_memory)(std::uint32_t kind, std::uint32_t size, std::uint32_t count, std::uint32_t one,
                    drns_heap* p_heap);
int (*free_memory)(drns_heap* p_heap);

// Loaded by its bare name; given back unless it is kept.
class library {
public:
    explicit library(const char* name) : handle(plat_dlopen(name, RTLD_NOW | RTLD_GLOBAL)) {}
    ~library()
    {
        if (handle != nullptr)
            plat_dlclose(handle);
    }
    library(const library&) = delete;
    library& operator=(const library&) = delete;

    bool is_there() const { return handle != nullptr; }
    void keep() { handle = nullptr; }

    template <typename Fn>
    bool find(const char* name, Fn* p_fn) const
    {
        void* const symbol = plat_dlsym(handle, name);
        std::memcpy(p_fn, &symbol, sizeof symbol);
        return symbol != nullptr;
    }

private:
    void* handle;
};

bool load()
{
    if (create != nullptr)
        return true;
    library oem("liboemcamera.so"); // the two others need it to be there
    if (!oem.is_there())
        return false;
    library util("libdrns_util.so");
    if (!util.is_there() || !util.find("Drns_Util_AllocSharedMemory", &alloc_memory) ||
        !util.find("Drns_Util_FreeSharedMemory", &free_memory))
        return false;
    library client("libdrns_client.so");
    if (!client.is_there() || !client.find("Drns_Client_Create", &create))
        return false;
    oem.keep();
    util.keep();
    client.keep();
    return true;
}

} // namespace

drns_client* drns_create()
{
    return load() ? create() : nullptr;
}

int drns_alloc(std::uint32_t kind, std::uint32_t size, std::uint32_t count, drns_heap* p_heap)
{
    return create != nullptr ? alloc_memory(kind, size, count, 1, p_heap) : FAILED;
}

int drns_free(drns_heap* p_heap)
{
    return create != nullptr ? free_memory(p_heap) : FAILED;
}
