#include "runtime/kmsg.h"

#include "core/files.h"
#include "core/log.h"
#include "core/text.h"

namespace phone {

namespace {

ssize_t kmsg_write(open_file&, const void* buf, std::size_t size)
{
    std::string_view text(static_cast<const char*>(buf), size);
    if (text.ends_with('\n'))
        text.remove_suffix(1);
    log_line(log_kmsg, escaped(text));
    return static_cast<ssize_t>(size);
}

constexpr node kmsg_node = {.write = kmsg_write};

} // namespace

void kmsg_attach()
{
    node_add("/dev/kmsg", &kmsg_node);
}

} // namespace phone
