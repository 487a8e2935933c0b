#include "mpvc/mpvc.h"

#include <cstdio>
#include <cstdlib>

#include "attr/attr.h"
#include "cfg/cfg.h"
#include "check/check.h"

namespace {

constexpr int FUNCTION_CONTACT = 1;
constexpr int FUNCTION_HEADSET = 2;
constexpr int FORMAT_RAW = 0;
constexpr int FORMAT_MV = 1;

constexpr int NO_HEADSET_VALUE = -69; // a kind that no plug has
constexpr int BASE_SIZE = 50;         // of the base path, in characters
constexpr std::size_t TEXT_SIZE = 32;

const mpvc_co* p_mpvc_co;

int read_number(const char* path, int* p_value)
{
    char text[TEXT_SIZE];
    if (attr_read(path, text, sizeof text) != ATTR_OK)
        return VADET_FAILED;
    *p_value = std::atoi(text);
    return VADET_OK;
}

int mpvc_vadet_function(const char* base, int format, int* p_value)
{
    char path[BASE_SIZE + 4];
    std::snprintf(path, sizeof path, "%.*s%s", BASE_SIZE, base, format == FORMAT_RAW ? "raw" : "mv");
    return read_number(path, p_value);
}

int mpvc_vadet_hs_detect(const char* base, int* p_value)
{
    int kind;
    const int result = read_number(base, &kind);
    if (result == VADET_OK)
        *p_value = kind == static_cast<int>(cfg_get_int("mpvc", "hs_det_value", NO_HEADSET_VALUE)) ? kind : 0;
    return result;
}

} // namespace

void mpvc_init()
{
    p_mpvc_co = nullptr;
}

void mpvc_cmd_co_attach(const mpvc_co* p_co)
{
    HVT_CHECK(p_co != nullptr);
    p_mpvc_co = p_co;
}

int mpvc_set(int on)
{
    HVT_CHECK(p_mpvc_co != nullptr);
    return p_mpvc_co->set != nullptr ? p_mpvc_co->set(on) : 0;
}

int vadet_read(int function, int format, int* p_value)
{
    const char* const base = cfg_get_str("mpvc", "debug_fs_vad", nullptr);
    if (base == nullptr)
        return VADET_FAILED;
    if (function == FUNCTION_CONTACT && (format == FORMAT_RAW || format == FORMAT_MV))
        return mpvc_vadet_function(base, format, p_value);
    return function == FUNCTION_HEADSET ? mpvc_vadet_hs_detect(base, p_value) : VADET_FAILED;
}
