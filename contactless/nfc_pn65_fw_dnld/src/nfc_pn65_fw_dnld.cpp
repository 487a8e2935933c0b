#include "nfc_pn65_fw_dnld/nfc_pn65_fw_dnld.h"

void nfc_pn65_fw_dnld_init()
{
}

int nfc_pn65_fw_dnld(std::uint32_t, std::uint32_t* p_status)
{
    *p_status = NFC_DNLD_IDLE;
    return 1;
}
