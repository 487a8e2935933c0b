// The RF band variants of the board "brenk". Attaches itself to rfbv; call that.
#pragma once

void rfbv_brenk_init();
