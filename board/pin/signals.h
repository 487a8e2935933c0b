// The logical signals by name: what a driver asks pin.h for, whatever the board. Inputs and outputs are
// numbered apart. Which line carries a signal, if any does, is the board's map.
#pragma once

// clang-format off
constexpr int PIN_OUT_30           =  30; // no user
constexpr int PIN_OUT_NFC_ENABLE   =  69; // supply of the first contactless chip
constexpr int PIN_OUT_NFC_DOWNLOAD =  73; // its firmware download mode; no line on this phone
constexpr int PIN_OUT_TUNER_POWER1 = 149;
constexpr int PIN_OUT_TUNER_POWER2 = 150;
constexpr int PIN_OUT_TUNER_RESET  = 151;
constexpr int PIN_OUT_RF_ID_SUPPLY = 154; // supply of the divider behind the RF id's converter channel
constexpr int PIN_OUT_LOCK_LINE    = 158; // lock line of the second contactless chip
constexpr int PIN_OUT_MHL_RESET    = 159;
constexpr int PIN_OUT_160          = 160; // no user
constexpr int PIN_OUT_SIM_SELECT   = 161; // which chip the contactless SIM hangs on
constexpr int PIN_OUT_ANTENNA0     = 163; // tuner antenna select, bits 0 to 2
constexpr int PIN_OUT_ANTENNA1     = 164;
constexpr int PIN_OUT_ANTENNA2     = 165;

constexpr int PIN_IN_NFC_IRQ       =   4; // the first contactless chip has something to say
constexpr int PIN_IN_CAMERA_COVER  =  11; // no line on this phone
constexpr int PIN_IN_12            =  12; // no user, no line
constexpr int PIN_IN_CARD_DETECT   =  13; // memory card; inactive when one is in
constexpr int PIN_IN_HEADSET_PLUG  =  40; // no line on this phone
constexpr int PIN_IN_41            =  41; // no user
constexpr int PIN_IN_PROXIMITY     =  47;
constexpr int PIN_IN_SIM_SUPPLY    =  49; // supply check of the contactless SIM
constexpr int PIN_IN_SIM_DETECT    =  50;
constexpr int PIN_IN_ACCEL_IRQ1    =  52;
constexpr int PIN_IN_ACCEL_IRQ2    =  53;
constexpr int PIN_IN_RF_VARIANT    =  57;
constexpr int PIN_IN_NFC2_STATUS1  =  61; // status lines of the second contactless chip
constexpr int PIN_IN_NFC2_STATUS2  =  62;
constexpr int PIN_IN_NFC2_IRQ      =  63;
constexpr int PIN_IN_NFC2_VARIANT  =  64;
constexpr int PIN_IN_65            =  65; // no user
constexpr int PIN_IN_66            =  66; // no user
constexpr int PIN_IN_COMPASS_READY =  67;
constexpr int PIN_IN_MHL_HOTPLUG   =  68;
constexpr int PIN_IN_TUNER_BUS     =  69; // driven by the tuner for its bus check
// clang-format on
