#include "wcn3680_scan.h"

#include <cstring>

namespace {

constexpr std::string_view WHITE_SPACE = " \t\n\v\f\r";
constexpr std::size_t ADDRESS_LENGTH = sizeof "00:00:00:00:00:00" - 1;

// Takes the next word off the text; an empty one at its end.
std::string_view take_word(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(WHITE_SPACE), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(WHITE_SPACE));
    text.remove_prefix(word.size());
    return word;
}

// Takes a line without its end off the text.
std::string_view take_line(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line;
}

} // namespace

bool wcn3680_scan_second_word(std::string_view output, char* p_text, std::size_t room)
{
    take_word(output);
    const std::string_view word = take_word(output);
    if (word.empty() || word.size() >= room)
        return false;
    p_text[word.copy(p_text, room - 1)] = '\0';
    return true;
}

void wcn3680_scan_addresses(std::string_view output, std::size_t most, char* p_text, std::size_t room)
{
    std::size_t length = 0;
    take_line(output);
    while (!output.empty() && most > 0) {
        std::string_view line = take_line(output);
        const std::string_view word = take_word(line);
        const std::size_t comma = length > 0 ? 1 : 0;
        if (word.empty() || word.size() > ADDRESS_LENGTH || length + comma + word.size() >= room)
            continue;
        if (comma != 0)
            p_text[length++] = ',';
        length += word.copy(p_text + length, word.size());
        most--;
    }
    p_text[length] = '\0';
}
