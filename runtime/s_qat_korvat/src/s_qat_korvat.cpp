#include "s_qat_korvat/s_qat_korvat.h"

int s_main(int, char**)
{
    return 0;
}
