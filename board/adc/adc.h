// Converters by name: whoever has one adds a record, whoever wants a reading names it. No driver of this
// board adds one, so every reading gives 0 here. The power management chip's channels are behind adcr.
#pragma once

struct adc_rec {
    char name[32]; // empty: a free entry
    int (*fn)(const char* name, int arg, int* p_val);
};

void adc_init();

// Copies a record into the first free entry of 32: 1, or 0 when there is none.
int adc_co_add(const adc_rec* p_rec);

// What the converter's function gives; 0 for a name that has no entry.
int adc_read(const char* name, int arg, int* p_val);
