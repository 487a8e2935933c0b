// The word `record`: what a station and the control port say from now on becomes a case of a transcript, late
// reports and pauses of the phone's time included (tests/README.md tells how transcripts are written).
#pragma once

#include <string>
#include <string_view>

namespace phone {

// What crossed the station's port.
void record_port(bool from_station, std::string_view bytes);

// A request of the control port, before it is carried out; the result is to be handed to record_answer, what
// came of it: `wrong` empty when it was carried out.
int record_request(std::string_view line);
void record_answer(int id, std::string_view wrong, std::string_view answer);

// The phone goes off or restarts, and the recording ends with the step that says so.
void record_end(const char* step);

void record_attach();

} // namespace phone
