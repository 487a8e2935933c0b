#include "f_card/f_card.h"

#include <cstring>
#include <memory>

#include "check/check.h"
#include "dcp/dcp.h"
#include "sdcard/sdcard.h"

namespace {

using std::uint32_t;

constexpr std::size_t TEXT_BYTES = 1024; // of a listing or a file

int answer(int id, bool done)
{
    return done ? dcp_answer(id, "mstt", "", DCP_OK) : DCP_ERROR;
}

// The text that `get` puts into a buffer of TEXT_BYTES goes out raw.
template <class Get>
int answer_raw(int id, Get get)
{
    const auto text = std::make_unique<char[]>(TEXT_BYTES + 1); // so that a full buffer ends too
    if (get(text.get()) != 1)
        return DCP_ERROR;
    dcp_print_raw(id, "MSTT:");
    dcp_print_raw(id, text.get());
    dcp_print_raw(id, ",");
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

// What needs a path. `text` is null when the line has three values.
int mstt_file(int id, uint32_t act, uint32_t sub, const char* path, const char* text)
{
    if (act == 3 && sub == 1 && text != nullptr)
        return answer(id, sdcard_write_file(path, text, std::strlen(text)) == 1);
    if (text != nullptr)
        return DCP_SYNTAX;
    if (act == 2 && sub == 2)
        return answer_raw(id, [=](char* p) { return sdcard_list_folder_inf(path, p, TEXT_BYTES); });
    if (act == 2 && sub == 3)
        return answer_raw(id, [=](char* p) { return sdcard_read_file(path, p, TEXT_BYTES); });
    if (act == 4 && sub == 1)
        return answer(id, sdcard_delete_file(path) == 1);
    return DCP_SYNTAX;
}

int do_card_mstt(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return dcp_answer(id, "mstt", "uSD test", DCP_OK);
    if (argc == 0)
        return dcp_answer(id, "mstt", "MSTT - uSD test command", DCP_OK);
    const uint32_t act = dcp_uint(argv[0]);
    if (argc <= 2)
        return mstt_card(id, act, argc == 2 ? dcp_uint(argv[1]) : int64_t{-1});
    const char* const path = dcp_text(argv[2]);
    const char* const text = argc > 3 ? dcp_text(argv[3]) : nullptr;
    if (path == nullptr || path[0] == '\0' || (argc > 3 && text == nullptr))
        return DCP_SYNTAX;
    return mstt_file(id, act, dcp_uint(argv[1]), path, text);
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
