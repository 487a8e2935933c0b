#include "vers_amss/vers_amss.h"

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "ftm_linux/ftm_linux.h"
#include "heap/heap.h"
#include "vers/vers.h"

namespace {

constexpr std::uint8_t BUILD_ID_REQUEST = 0x7C;
constexpr std::uint32_t BUILD_ID_AT_TEXT = 12;
constexpr std::size_t BUILD_ID_ROOM = 100;

constexpr std::uint8_t VERSION_REQUEST = 0x00;
constexpr std::uint32_t VERSION_AT_TEXT = 1;
constexpr std::size_t VERSION_ROOM = 20;

char amss_rev[256];

// The text at `offset` of the modem's answer to a request of one byte; NULL if it doesn't answer.
const char* ask(std::uint8_t request, char* reply, std::uint32_t offset)
{
    std::uint32_t size = 0;
    if (ftm_cmd(&request, 1, reinterpret_cast<std::uint8_t*>(reply), FTM_MAX_RESP_LEN - 1, &size) != 1)
        return nullptr;
    reply[size] = '\0';
    return offset < size ? reply + offset : "";
}

const char* vers_amss_get(void*)
{
    amss_rev[0] = '\0';
    const auto reply = heap_alloc<char>(FTM_MAX_RESP_LEN);
    if (reply == nullptr || ftm_active() == 0)
        return amss_rev;
    const char* text = ask(BUILD_ID_REQUEST, reply.get(), BUILD_ID_AT_TEXT);
    if (text == nullptr)
        return amss_rev;
    std::snprintf(amss_rev, BUILD_ID_ROOM, "%s,", text);
    text = ask(VERSION_REQUEST, reply.get(), VERSION_AT_TEXT);
    if (text != nullptr)
        std::snprintf(amss_rev + std::strlen(amss_rev), VERSION_ROOM, "%s", text);
    return amss_rev;
}

} // namespace

void vers_amss_init()
{
    vers_co_attach(VERS_TYPE_MODEM, vers_amss_get);
}
