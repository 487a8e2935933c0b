#include "cfg/cfg.h"

#include <cstdlib>
#include <cstring>

#include "check/check.h"

namespace {

slnk cfg_head;

cfg_item* item_of(slnk* p_lnk)
{
    return reinterpret_cast<cfg_item*>(p_lnk);
}

int compare(const cfg_item* p_item, const char* module, const char* key)
{
    const int order = std::strcmp(p_item->module, module);
    return order != 0 ? order : std::strcmp(p_item->key, key);
}

// The node behind which the pair stands or belongs.
slnk* node_before(const char* module, const char* key)
{
    slnk* p_prv = &cfg_head;
    while (slnk_next(p_prv) != nullptr && compare(item_of(slnk_next(p_prv)), module, key) < 0)
        p_prv = slnk_next(p_prv);
    return p_prv;
}

cfg_item* find_behind(slnk* p_prv, const char* module, const char* key)
{
    slnk* p_lnk = slnk_next(p_prv);
    return p_lnk != nullptr && compare(item_of(p_lnk), module, key) == 0 ? item_of(p_lnk) : nullptr;
}

cfg_item* create(slnk* p_prv, const char* module, const char* key, int type)
{
    auto* p_item = static_cast<cfg_item*>(std::malloc(sizeof(cfg_item)));
    HVT_CHECK(p_item != nullptr);
    *p_item = {{}, type, module, key, 0};
    slnk_insert(p_prv, &p_item->lnk);
    return p_item;
}

void free_text(const cfg_item* p_item)
{
    if (p_item->type == CFG_TYPE_STR)
        std::free(reinterpret_cast<char*>(p_item->data));
}

const cfg_item* find_typed(const char* module, const char* key, int type)
{
    const cfg_item* p_item = cfg_find(module, key);
    HVT_CHECK(p_item == nullptr || p_item->type == type);
    return p_item;
}

} // namespace

void cfg_init()
{
    while (slnk* p_lnk = slnk_remove_next(&cfg_head)) {
        free_text(item_of(p_lnk));
        std::free(item_of(p_lnk));
    }
}

void cfg_set(const char* module, const char* key, int type, std::uintptr_t value)
{
    HVT_CHECK(module != nullptr && key != nullptr);
    HVT_CHECK(type >= 0 && type < CFG_TYPE_LAST);
    if (type == CFG_TYPE_STR) {
        HVT_CHECK(value != 0);
        char* copy =
            strdup(reinterpret_cast<const char*>(value)); // before the old one goes: it may be the same
        HVT_CHECK(copy != nullptr);
        value = reinterpret_cast<std::uintptr_t>(copy);
    }
    slnk* p_prv = node_before(module, key);
    cfg_item* p_item = find_behind(p_prv, module, key);
    if (p_item == nullptr)
        p_item = create(p_prv, module, key, type);
    HVT_CHECK(p_item->type == type);
    free_text(p_item);
    p_item->data = value;
}

void cfg_set_str(const char* module, const char* key, const char* text)
{
    cfg_set(module, key, CFG_TYPE_STR, reinterpret_cast<std::uintptr_t>(text));
}

void cfg_set_int(const char* module, const char* key, std::uint32_t number)
{
    cfg_set(module, key, CFG_TYPE_INT, number);
}

const cfg_item* cfg_find(const char* module, const char* key)
{
    return find_behind(node_before(module, key), module, key);
}

const char* cfg_get_str(const char* module, const char* key, const char* otherwise)
{
    const cfg_item* p_item = find_typed(module, key, CFG_TYPE_STR);
    return p_item != nullptr ? reinterpret_cast<const char*>(p_item->data) : otherwise;
}

std::uint32_t cfg_get_int(const char* module, const char* key, std::uint32_t otherwise)
{
    const cfg_item* p_item = find_typed(module, key, CFG_TYPE_INT);
    return p_item != nullptr ? static_cast<std::uint32_t>(p_item->data) : otherwise;
}

const cfg_item* cfg_get_first_item()
{
    slnk* p_lnk = slnk_next(&cfg_head);
    return p_lnk != nullptr ? item_of(p_lnk) : nullptr;
}
