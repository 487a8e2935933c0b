#include "rev/rev.h"

#include <cstring>

#include "check/check.h"
#include "dcp/dcp.h"

namespace {

slnk rev_head;

const rev_rec* rec_of(const slnk* p_lnk)
{
    return reinterpret_cast<const rev_rec*>(p_lnk);
}

const rev_rec* find(const char* id)
{
    for (const slnk* p_lnk = slnk_next(&rev_head); p_lnk != nullptr; p_lnk = slnk_next(p_lnk))
        if (std::strcmp(rec_of(p_lnk)->id, id) == 0)
            return rec_of(p_lnk);
    return nullptr;
}

int list_all(int id, bool with_text)
{
    for (const slnk* p_lnk = slnk_next(&rev_head); p_lnk != nullptr; p_lnk = slnk_next(p_lnk)) {
        const rev_rec* p_rec = rec_of(p_lnk);
        if (with_text)
            dcp_printf(id, "rev", "%s: %s", p_rec->id, p_rec->txt);
        else
            dcp_printf(id, "rev", "%s", p_rec->id);
    }
    return DCP_OK;
}

int do_rev(int id, int action, int argc, const dcp_word* argv)
{
    if (action == DCP_ACTION_TEST)
        return list_all(id, false);
    if (argc == 0)
        return list_all(id, true);
    const rev_rec* p_rec = argv[0] != 0 ? find(dcp_text(argv[0])) : nullptr;
    if (p_rec == nullptr)
        return DCP_ERROR;
    dcp_printf(id, "rev", "%s: %s", p_rec->id, p_rec->txt);
    return DCP_OK;
}

// clang-format off
constexpr dcp_cmd rev_cmd_tab[] = {
    { "rev", "(name)", "%s", "revision(object)", do_rev, DCP_GRP_STANDARD },
    {},
};
// clang-format on

dcp_cmd_link rev_cmd_link;

} // namespace

void rev_init()
{
    slnk_init(&rev_head);
    dcp_cmd_add(rev_cmd_tab, &rev_cmd_link);
}

void rev_add(rev_rec* p_rec, const char* id, const char* txt)
{
    HVT_CHECK(id != nullptr);
    HVT_CHECK(txt != nullptr);
    p_rec->id = id;
    p_rec->txt = txt;
    slnk_insert(&rev_head, &p_rec->lnk);
}

const char* rev_get(const char* id)
{
    HVT_CHECK(id != nullptr);
    const rev_rec* p_rec = find(id);
    return p_rec != nullptr ? p_rec->txt : nullptr;
}
