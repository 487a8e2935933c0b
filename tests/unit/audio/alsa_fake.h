// libasound for unit tests: what the module calls of it, with a card of a few variables behind. It records
// each control write and each call of a stream, and gives the results that a test has queued. Calls with a
// null handle, or with a null buffer, are counted as faults.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <vector>

struct alsa_fake_state {
    std::vector<std::string> log; // "36=70", "open", "hw_params 4096 96", "prepare", ...
    std::map<std::string, std::vector<long>>
        results; // of the next calls of a name; then 0, or as much as was asked
    int refuse_numid = 0;
    unsigned granted_rate = 0; // 0: as asked
    unsigned long granted_ring = 0;
    std::vector<std::int16_t> written; // all samples of a playback
    std::vector<std::int16_t> block;   // what a read gives, over and over
    long free = 4096;                  // frames that avail_update tells
    int objects = 0;                   // handles and records that aren't freed
    int faults = 0;
};

extern alsa_fake_state alsa_fake;
extern std::mutex alsa_fake_mutex; // the module's threads call too

void alsa_fake_reset();

// How often `what` stands in the log.
long alsa_fake_count(const std::string& what);
