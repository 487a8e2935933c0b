// hvt-device: the program that ships on the phone, straight on the Linux kernel.
#include "plat/plat.h"
#include "plat_linux/plat_linux.h"
#include "s_qat_korvat/s_qat_korvat.h"

int main(int argc, char** argv)
{
    plat_attach(&plat_linux_co);
    return s_main(argc, argv);
}
