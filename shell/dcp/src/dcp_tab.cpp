// The list of command tables, and an index over their names.
#include "dcp_inner.h"

#include "check/check.h"
#include "scf/scf.h"

#include <array>
#include <cstring>
#include <vector>

namespace {

// Names of up to eight characters fit a word: they are compared as one. A longer one is in the index under
// its first eight, and the rest is compared as text.
constexpr std::size_t KEY_CHARS = 8;

struct index_row {
    std::uint64_t key;
    const dcp_cmd* p_cmd; // null: free
    std::size_t len;
};

dlnk cmd_list_head;

// Open addressing, at most half full. Built when a table is added, never touched by a line.
std::vector<index_row> name_index;
std::size_t name_count;
unsigned name_shift; // 64 less the bits of the index

using fold_tab = std::array<char, 256>;

constexpr fold_tab make_fold(bool to_lower)
{
    fold_tab tab{};
    for (int c = 0; c < 256; c++)
        tab[static_cast<std::size_t>(c)] = static_cast<char>(to_lower && c >= 'A' && c <= 'Z' ? c + 32 : c);
    return tab;
}

constexpr fold_tab fold_lower = make_fold(true);

std::uint64_t key_of(const char* name, std::size_t len)
{
    std::uint64_t key = 0;
    for (std::size_t i = 0; i < len && i < KEY_CHARS; i++)
        key |= std::uint64_t{static_cast<unsigned char>(name[i])} << 8 * i;
    return key;
}

std::size_t slot_of(std::uint64_t key)
{
    return static_cast<std::size_t>(key * 0x9E3779B97F4A7C15U >> name_shift);
}

// The row of the index that holds the name, or the free one where it belongs.
index_row* index_find(std::uint64_t key, const char* name, std::size_t len)
{
    const std::size_t mask = name_index.size() - 1;
    for (std::size_t i = slot_of(key);; i = (i + 1) & mask) {
        index_row& row = name_index[i];
        if (!row.p_cmd)
            return &row;
        if (row.key == key && row.len == len &&
            (len <= KEY_CHARS || std::memcmp(row.p_cmd->name, name, len) == 0))
            return &row;
    }
}

void index_add(const dcp_cmd* p_cmd)
{
    const std::size_t len = std::strlen(p_cmd->name);
    const std::uint64_t key = key_of(p_cmd->name, len);
    index_row* p_row = index_find(key, p_cmd->name, len);
    if (p_row->p_cmd)
        return; // the first in list order is the one that is called
    *p_row = {key, p_cmd, len};
    name_count++;
}

void index_grow(unsigned bits)
{
    std::vector<index_row> old(std::size_t{1} << bits);
    old.swap(name_index);
    name_shift = 64 - bits;
    name_count = 0;
    for (const index_row& row : old)
        if (row.p_cmd)
            index_add(row.p_cmd);
}

} // namespace

void dcp_tab_init()
{
    dlnk_init(&cmd_list_head);
    name_index.clear();
    index_grow(8);
}

void dcp_cmd_add(const dcp_cmd* p_cmd, dcp_cmd_link* p_obj)
{
    HVT_CHECK(p_cmd && p_obj);
    p_obj->p_tab = p_cmd;
    dlnk_insert(&cmd_list_head, &p_obj->link);
    for (; p_cmd->fn; p_cmd++) {
        if (2 * (name_count + 1) > name_index.size())
            index_grow(64 - name_shift + 1);
        index_add(p_cmd);
    }
}

const dcp_cmd* dcp_tab_find(const char* name, std::size_t len)
{
    return index_find(key_of(name, len), name, len)->p_cmd;
}

const dcp_cmd* dcp_tab_find_folded(char* name, std::size_t len)
{
    std::uint64_t key = 0;
    std::size_t i = 0;
    for (; i < len && i < KEY_CHARS; i++) {
        name[i] = fold_lower[static_cast<unsigned char>(name[i])];
        key |= std::uint64_t{static_cast<unsigned char>(name[i])} << 8 * i;
    }
    if (i < len)
        scf_case_to_lower(name + i, len - i);
    return index_find(key, name, len)->p_cmd;
}

dlnk* dcp_cmd_list()
{
    return &cmd_list_head;
}

dcp_cmd_link* dcp_cmd_tab_next(const dcp_cmd_link* p_link)
{
    dlnk* p_next = p_link ? p_link->link.p_next : cmd_list_head.p_next;
    return p_next == &cmd_list_head ? nullptr : reinterpret_cast<dcp_cmd_link*>(p_next);
}

dcp_cmd_link* dcp_cmd_tab_prev(const dcp_cmd_link* p_link)
{
    dlnk* p_prev = p_link ? p_link->link.p_prev : cmd_list_head.p_prev;
    return p_prev == &cmd_list_head ? nullptr : reinterpret_cast<dcp_cmd_link*>(p_prev);
}
