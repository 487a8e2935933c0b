#include "contactless/frame_rules.h"

#include <algorithm>
#include <cstdio>

#include "core/text.h"

namespace phone {

namespace {

constexpr std::size_t kept_frames = 256;
constexpr std::size_t most_bytes = 1024; // of an answer's frame

} // namespace

frame_rules::frame_rules(answer_forms forms) : allowed(forms) {}

std::optional<answer_frames> frame_rules::take(std::span<const std::uint8_t> bytes)
{
    const auto fits = [bytes](const rule& r) {
        return r.prefix.size() <= bytes.size() && std::equal(r.prefix.begin(), r.prefix.end(), bytes.begin());
    };
    const auto found = std::ranges::find_if(rules, fits);
    if (found == rules.end())
        return {};
    answer_frames frames = found->frames;
    if (found->left > 0 && --found->left == 0)
        rules.erase(found);
    return frames;
}

void frame_rules::keep(std::span<const std::uint8_t> frame)
{
    recent.emplace_back(frame.begin(), frame.end());
    if (recent.size() > kept_frames)
        recent.pop_front();
}

std::string frame_rules::word(request& rq)
{
    const auto& args = rq.args;
    if (args.size() == 1 && args[0] == "off") {
        rules.clear();
        return {};
    }
    if (!args.empty() && args.size() <= 2 && args[0] == "recent")
        return tell_recent(rq);
    return add(args);
}

std::optional<answer_frame> frame_rules::frame_of(std::string_view text) const
{
    answer_frame frame{answer_kind::bytes, {}};
    if (allowed.ack && text == "ack")
        return answer_frame{answer_kind::ack, {}};
    if (allowed.old && text.starts_with("old:"))
        frame.kind = answer_kind::old;
    if (allowed.raw && text.starts_with("raw:"))
        frame.kind = answer_kind::raw;
    if (frame.kind != answer_kind::bytes)
        text.remove_prefix(4);
    const auto bytes = hex_bytes(text);
    if (!bytes || bytes->empty() || bytes->size() > most_bytes)
        return {};
    frame.bytes = *bytes;
    return frame;
}

std::string frame_rules::add(const std::vector<std::string>& args)
{
    if (args.size() < 2 || args.size() > 3)
        return "PREFIX ANSWER [COUNT], off or recent [N] is wanted";
    rule r{{}, {}, -1};
    const auto prefix = hex_bytes(args[0]);
    if (!prefix || prefix->empty())
        return "the beginning of a frame in hexadecimal is wanted, not \"" + args[0] + "\"";
    r.prefix = *prefix;
    if (args[1] != "silent") {
        const auto texts = allowed.several ? split(args[1], '+') : std::vector<std::string_view>{args[1]};
        for (const std::string_view text : texts) {
            const auto frame = frame_of(text);
            if (!frame)
                return "an answer of 1 to 1024 bytes in hexadecimal, or silent, is wanted, not \"" +
                       std::string(text) + "\"";
            r.frames.push_back(*frame);
        }
    }
    if (args.size() == 3) {
        const auto count = number(args[2]);
        if (!count || *count < 1)
            return "a count of 1 or more is wanted";
        r.left = *count;
    }
    rules.push_front(std::move(r));
    return {};
}

std::string frame_rules::tell_recent(request& rq) const
{
    std::size_t n = recent.size();
    if (rq.args.size() == 2) {
        const auto wanted = number(rq.args[1]);
        if (!wanted || *wanted < 1)
            return "a number of 1 or more is wanted";
        n = std::min(n, static_cast<std::size_t>(*wanted));
    }
    for (std::size_t i = recent.size() - n; i < recent.size(); i++)
        rq.answer += (rq.answer.empty() ? "" : "\n") + to_hex(recent[i].data(), recent[i].size());
    if (recent.empty())
        rq.answer = "none";
    return {};
}

std::string hex_digits(std::uint32_t value, int digits)
{
    char text[16];
    std::snprintf(text, sizeof text, "%0*X", digits, value);
    return text;
}

} // namespace phone
