// What the bench wants a chip that talks in frames to answer, and the frames that the chip was sent: the
// common part of the words `pn65`, `pn65dl` and `tamiro`. What an answer looks like on the wire is the chip's
// affair. Each chip guards its own.
#pragma once

#include <cstdint>
#include <deque>
#include <list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/control.h"

namespace phone {

enum class answer_kind { bytes, ack, old, raw };

// One frame of an answer.
struct answer_frame {
    answer_kind kind;
    std::vector<std::uint8_t> bytes;
};

using answer_frames = std::vector<answer_frame>; // none: silence

// Which answers a word takes beside BYTES and `silent`.
struct answer_forms {
    bool ack, old, raw;
    bool several; // joined by +
};

class frame_rules {
public:
    explicit frame_rules(answer_forms forms);

    // What the newest rule that fits says to a frame; a used-up rule is gone.
    std::optional<answer_frames> take(std::span<const std::uint8_t> bytes);

    // Keeps a frame of the program's for `recent`.
    void keep(std::span<const std::uint8_t> frame);

    // Carries out PREFIX ANSWER [COUNT], `off` and `recent [N]`.
    std::string word(request& rq);

private:
    struct rule {
        std::vector<std::uint8_t> prefix;
        answer_frames frames;
        std::int64_t left; // frames, -1 for any number
    };

    std::optional<answer_frame> frame_of(std::string_view text) const;
    std::string add(const std::vector<std::string>& args);
    std::string tell_recent(request& rq) const;

    answer_forms allowed;
    std::list<rule> rules; // the newest first
    std::deque<std::vector<std::uint8_t>> recent;
};

// A number of `digits` hexadecimal digits as its text, upper case.
std::string hex_digits(std::uint32_t value, int digits);

} // namespace phone
