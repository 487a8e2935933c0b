// The driver of the qxr5170jvk, the second contactless chip, of the Tamiro technology (chip number 2 of
// nfc.h), on the serial line of this hardware platform. The chip has two personalities behind one control
// line: its own command frames and HCI frames in an envelope. All runs in the caller's thread and blocks it;
// a polling series as long as its rounds take.
#pragma once

void nfc_tamiro_qxr5170jvk_brenk_init(); // tier entry
