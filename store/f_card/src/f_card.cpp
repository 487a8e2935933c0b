#include "f_card/f_card.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <memory>

#include "check/check.h"
#include "dcp/dcp.h"
#include "sdcard/sdcard.h"

namespace {

using std::uint32_t;

constexpr std::size_t TEXT_BYTES = 1024; // of a listing or a file
constexpr std::size_t MAX_DCP_OUTPUT_BUF_SIZE = TEXT_BYTES + 128;

struct heap_free {
    void operator()(char* p) const { std::free(p); }
};
using heap_text = std::unique_ptr<char, heap_free>;

heap_text heap_alloc(std::size_t size)
{
    heap_text p(static_cast<char*>(std::calloc(1, size)));
    HVT_CHECK(p != nullptr);
    return p;
}

// The printer of long raw text: neither name nor terminator.
__attribute__((format(printf, 3, 4))) void dcp_printf_sdcard(int id, const char*, const char* fmt, ...)
{
    const heap_text text = heap_alloc(MAX_DCP_OUTPUT_BUF_SIZE);
    va_list args;
    va_start(args, fmt);
    std::vsnprintf(text.get(), MAX_DCP_OUTPUT_BUF_SIZE, fmt, args);
    va_end(args);
    dcp_resp_dspl(id, DCP_DSPL_RAW, 0, text.get());
}

int answer(int id, bool done)
{
    if (!done)
        return DCP_ERROR;
    dcp_printf(id, "mstt", "%s", "");
    return DCP_OK;
}

// The text that `get` puts into a buffer of TEXT_BYTES goes out raw.
template <class Get>
int answer_raw(int id, Get get)
{
    const heap_text text = heap_alloc(TEXT_BYTES + 1); // so that a full buffer ends too
    if (get(text.get()) != 1)
        return DCP_ERROR;
    dcp_printf_add(dcp_printf_sdcard);
    dcp_printf(id, "mstt", "MSTT:");
    dcp_printf(id, "mstt", "%s,", text.get());
    dcp_printf_add(nullptr);
    return DCP_OK;
}

int mstt_detect(int id)
{
    dcp_printf(id, "mstt", "0x%x", static_cast<unsigned>(sdcard_detect_sd()));
    return DCP_OK;
}

int mstt_capacity(int id)
{
    dcp_printf(id, "mstt", "%d", sdcard_get_size());
    return DCP_OK;
}

// What needs no path. `sub` is -1 when the line gives none.
int mstt_card(int id, uint32_t act, int64_t sub)
{
    if ((act == 0 && sub == -1) || (act == 1 && sub == 0))
        return mstt_detect(id);
    if (act == 1 && (sub == -1 || sub == 1))
        return mstt_capacity(id);
    if (act == 4 && sub == 2)
        return answer(id, sdcard_erase() == 1);
    if (act == 4 && sub == 3)
        return answer(id, sdcard_format() == 1);
    if (act == 5 && sub == 0) {
        sdcard_unmount(); // whether it was mounted or not
        return answer(id, true);
    }
    if (act == 5 && sub == 1)
        return answer(id, sdcard_mount() == 1);
    return DCP_SYNTAX;
}

int mstt_file(int id, uint32_t act, uint32_t sub, const char* path, const char* text)
{
    if (act == 2 && sub == 2)
        return answer_raw(id, [=](char* p) { return sdcard_list_folder_inf(path, p, TEXT_BYTES); });
    if (act == 2 && sub == 3)
        return answer_raw(id, [=](char* p) { return sdcard_read_file(path, p, TEXT_BYTES); });
    if (act == 4 && sub == 1)
        return answer(id, sdcard_delete_file(path) == 1);
    if (act == 3 && sub == 1 && text != nullptr)
        return answer(id, sdcard_write_file(path, text, std::strlen(text)) == 1);
    return DCP_SYNTAX;
}

bool is_for_file(uint32_t act, uint32_t sub)
{
    return act == 2 || act == 3 || (act == 4 && sub == 1);
}

int do_card_mstt(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST) {
        dcp_printf(id, "mstt", "uSD test");
        return DCP_OK;
    }
    if (argc == 0) {
        dcp_printf(id, "mstt", "MSTT - uSD test command");
        return DCP_OK;
    }
    const uint32_t act = dcp_uint(argv[0]);
    if (argc == 1)
        return mstt_card(id, act, -1);
    const uint32_t sub = dcp_uint(argv[1]);
    if (!is_for_file(act, sub))
        return mstt_card(id, act, sub);
    const char* path = argc > 2 ? dcp_text(argv[2]) : nullptr;
    if (path == nullptr || path[0] == '\0')
        return DCP_SYNTAX;
    return mstt_file(id, act, sub, path, argc > 3 ? dcp_text(argv[3]) : nullptr);
}

constexpr dcp_cmd f_card_cmd_tab[] = {
    {"mstt", "(0-0xFF)[,(0-0xFF)[,(...)]]", "%v,%v,%s,%s", "mstt(act,sub_act,path,txt)", do_card_mstt,
     DCP_GRP_PRODUCTION},
    {},
};

dcp_cmd_link f_card_cmd_link;

} // namespace

void f_card_init()
{
    dcp_cmd_add(f_card_cmd_tab, &f_card_cmd_link);
}
