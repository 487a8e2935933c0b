// Writing the sections of a container, chunk by chunk.
#include <algorithm>

#include "dnld.h"

namespace pn65_dnld {

namespace {

constexpr std::size_t MOST_DATA = 504;         // of a frame
constexpr std::uint32_t LOW_SECTIONS = 0x8080; // below it

using exchange = section_state::exchange;

int read_chunk(download& d, exchange why, std::uint32_t address, std::size_t count)
{
    d.writing.last = why;
    return send_read(d, address, count);
}

// What the chip has at the beginning of a section is read before anything of it is written.
int read_kept(download& d, const section& s)
{
    section_state& w = d.writing;
    if (w.last == exchange::keep_read && d.accepted) {
        w.kept = d.data;
        w.kept_is_there = true;
        return NFCSTATUS_SUCCESS;
    }
    if (w.last == exchange::keep_read && ++w.retries == MOST_RETRIES)
        return DNLD_TOO_MANY_RETRIES;
    return read_chunk(d, exchange::keep_read, s.address, std::min(s.data.size(), MOST_DATA));
}

// phDnldNfc_Read: NFCSTATUS_SUCCESS when there is nothing to be read before the section goes on.
int phDnldNfc_Read(download& d, const section& s)
{
    section_state& w = d.writing;
    if ((s.flags & SECTION_KEEP) != 0 && !w.kept_is_there)
        return read_kept(d, s);
    if ((s.flags & SECTION_READ_BACK) != 0 && w.last == exchange::write)
        return read_chunk(d, exchange::read_back, s.address + static_cast<std::uint32_t>(w.done),
                          w.chunk.size());
    return NFCSTATUS_SUCCESS;
}

// Whether the last exchange went well, as far as it was looked at.
bool went_well(const download& d)
{
    if (d.strikes != 0)
        return false;
    return d.writing.last != exchange::read_back || (d.accepted && d.data == d.writing.chunk);
}

// The next chunk, the listed bytes of the first one as the chip had them. One that has to be sent again is as
// it was.
void make_chunk(section_state& w, const section& s)
{
    if (!w.chunk.empty())
        return;
    const bytes_view left = s.data.subspan(w.done);
    w.chunk.assign(left.begin(),
                   left.begin() + static_cast<std::ptrdiff_t>(std::min(left.size(), MOST_DATA)));
    if (w.done == 0)
        for (const std::uint8_t at : s.keep)
            if (at < w.chunk.size() && at < w.kept.size())
                w.chunk[at] = w.kept[at];
}

// Called for each exchange that is done: NFCSTATUS_SUCCESS when the section is.
int phDnldNfc_Process_Write(download& d, const section& s)
{
    section_state& w = d.writing;
    if (s.data.empty())
        return NFCSTATUS_SUCCESS;
    const int read = phDnldNfc_Read(d, s);
    if (read != NFCSTATUS_SUCCESS)
        return read;
    if (went_well(d)) {
        w.retries = 0;
        w.done += w.chunk.size();
        w.chunk.clear();
    } else if (++w.retries == MOST_RETRIES) {
        return DNLD_TOO_MANY_RETRIES;
    }
    if (w.done == s.data.size())
        return NFCSTATUS_SUCCESS;
    make_chunk(w, s);
    w.last = exchange::write;
    return send_write(d, d.firmware.writes_with_12 ? CMD_WRITE_12 : CMD_WRITE,
                      s.address + static_cast<std::uint32_t>(w.done), w.chunk);
}

// Goes to the section behind one that is done; behind a low one other low ones are skipped.
void next_section(download& d)
{
    const auto& sections = d.firmware.sections;
    if (sections[d.current].address < LOW_SECTIONS)
        gphDnldPhase = DNLD_PAST_LOW;
    d.writing = {};
    d.current++;
    while (d.current < sections.size() && sections[d.current].address < LOW_SECTIONS &&
           gphDnldPhase == DNLD_PAST_LOW)
        d.current++;
    if (d.current < sections.size() && sections[d.current].address < LOW_SECTIONS)
        gphDnldPhase = DNLD_WRITES;
}

} // namespace

int phDnldNfc_Resume_Write(download& d)
{
    while (d.current < d.firmware.sections.size()) {
        const section& s = d.firmware.sections[d.current];
        const int result = phDnldNfc_Process_Write(d, s);
        if (result != NFCSTATUS_SUCCESS)
            return result;
        next_section(d);
        if ((s.flags & SECTION_RESET) != 0)
            return phDnldNfc_Send_Command(d, CMD_RESET);
    }
    d.seq.next_phase = PHASE_VERIFY;
    return NFCSTATUS_SUCCESS;
}

} // namespace pn65_dnld
