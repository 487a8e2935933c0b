// What the kernel's attributes may hold: every path gives the input's bytes, in whatever pieces, to the
// parsers of the SPMI dump, the converters, the regulators, the fuses, the settings, the codec and the plug,
// and to the readers of a list of bytes and of a last number. The first byte sets the count of the SPMI
// reading and its place in a row, and how many bytes of a list are wanted.
#include <memory>
#include <vector>

#include "adcr/adcr.h"
#include "adcr_brenk/adcr_brenk.h"
#include "attr_num/attr_num.h"
#include "audio_v2/audio.h"
#include "audio_wcd9320/audio_wcd9320.h"
#include "cfg/cfg.h"
#include "fuzz_input.h"
#include "mpvc/mpvc.h"
#include "msm/msm.h"
#include "msm_linux/msm_linux.h"
#include "spmi/spmi.h"
#include "spmi_linux/spmi_linux.h"
#include "syscfg/syscfg.h"
#include "syscfg_brenk/syscfg_brenk.h"
#include "vreg/vreg.h"
#include "vreg_linux/vreg_linux.h"

namespace {

// Bytes that can't be there must not be given: a failed reading leaves them alone.
void read_spmi(std::uint8_t how)
{
    const std::size_t len = std::size_t{how} * 16 % (SPMI_MOST_READ + 1);
    std::vector<std::uint8_t> bytes(len);
    spmi_read(0, how, bytes.data(), len);
    spmi_masked_write(0, 0x0F, how, 0x05, std::min(len, std::size_t{3}));
}

void read_others()
{
    int value[3];
    std::uint32_t version[3];
    char name[9];
    for (const std::uint32_t channel : {10u, 11u, 13u, 19u, 38u})
        adcr_read(channel, channel % 3, value);
    vreg_get_level("x", &value[0], &value[1], &value[2]);
    require(vreg_get_name(0, name, sizeof name) != 0 || std::strlen(name) < sizeof name);
    msm_pvs_read(value);
    msm_version_read(version);
    const char* const text = syscfg_get_setting(0);
    require(text == nullptr || std::strlen(text) <= 200);
}

// The codec's registers and the plug detection.
void read_sound()
{
    unsigned reg = 0;
    require(audio_wcd9320_read(0x1b4, &reg) != 0 || reg <= 0xFF);
    int contact;
    vadet_read(1, 0, &contact);
    vadet_read(2, 0, &contact);
    require(ajdt_detect() <= 1);
}

void read_numbers(std::uint8_t how)
{
    const std::size_t wanted = how + std::size_t{1};
    const auto bytes = std::make_unique<std::uint8_t[]>(wanted); // exactly as large, for the sanitizer
    attr_num_bytes("/attribute", bytes.get(), wanted);
    int value;
    attr_num_last("/attribute", &value);
}

void attach()
{
    static plat_callouts co = file_callouts();
    co.read = [](int, void* buf, std::size_t size) { return static_cast<ssize_t>(give(buf, size, 97)); };
    co.opendir = [](const char*) -> DIR* { return opendir("/"); };
    co.readdir = [](DIR*) -> dirent* {
        static dirent vadc;
        std::strcpy(vadc.d_name, "qpnp-vadc-8");
        return &vadc;
    };
    plat_attach(&co);
    adcr_brenk_init();
    spmi_linux_init();
    vreg_linux_init();
    msm_linux_init();
    syscfg_brenk_init();
    cfg_init();
    cfg_set_str("mpvc", "debug_fs_vad", "x");
    cfg_set_str("audio", "debug_fs_plug_detect", "x");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const bool attached = (attach(), true);
    if (!attached || size == 0)
        return 0;
    take_input(data + 1, size - 1);
    read_spmi(data[0]);
    read_others();
    read_sound();
    read_numbers(data[0]);
    return 0;
}
