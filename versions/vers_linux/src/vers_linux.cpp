#include "vers_linux/vers_linux.h"

#include "check/check.h"
#include "plat/plat.h"
#include "scf/scf.h"
#include "vers/vers.h"

namespace {

char linux_rev[256];

const char* vers_linux_get(void*)
{
    const int fd = plat_open("/proc/version", O_RDONLY);
    HVT_CHECK(fd >= 0); // no kernel is without it
    const ssize_t n = plat_read(fd, linux_rev, sizeof linux_rev - 1);
    plat_close(fd);
    if (n < 0)
        return nullptr;
    linux_rev[n > 0 ? n - 1 : 0] = '\0'; // the last byte is the line end
    scf_clean(linux_rev, "\n\r");
    return linux_rev;
}

} // namespace

void vers_linux_init()
{
    vers_co_attach(VERS_TYPE_OS, vers_linux_get);
}
