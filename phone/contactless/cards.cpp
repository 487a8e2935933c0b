#include "contactless/cards.h"

#include <algorithm>
#include <mutex>
#include <string>
#include <vector>

#include "core/conf.h"
#include "core/control.h"

namespace phone {

namespace {

constexpr std::string_view kinds = "abfv";
constexpr std::size_t most_cards = 16;

std::mutex cards_mutex; // guards the next two
std::string cards;      // a letter a card
bool element = true;

std::vector<void (*)()> listeners; // written before the program runs

std::string told_cards()
{
    const std::lock_guard lock(cards_mutex);
    std::string text;
    for (const char kind : cards)
        text += std::string(text.empty() ? "" : " ") + kind;
    return text.empty() ? "none" : text;
}

std::string word_tag(request& rq)
{
    if (rq.args.empty()) {
        rq.answer = told_cards();
        return {};
    }
    std::string wanted;
    if (rq.args.size() != 1 || rq.args[0] != "none")
        for (const std::string& kind : rq.args) {
            if (kind.size() != 1 || kinds.find(kind) == std::string_view::npos)
                return "none, or cards of the kinds a, b, f and v are wanted, not \"" + kind + "\"";
            wanted += kind;
        }
    if (wanted.size() > most_cards)
        return "at most 16 cards lie before the antenna";
    {
        const std::lock_guard lock(cards_mutex);
        cards = wanted;
    }
    for (const auto fn : listeners)
        fn();
    return {};
}

std::string word_swp(request& rq)
{
    const std::lock_guard lock(cards_mutex);
    if (rq.args.empty()) {
        rq.answer = element ? "on" : "off";
        return {};
    }
    if (rq.args.size() != 1 || (rq.args[0] != "on" && rq.args[0] != "off"))
        return "on or off is wanted";
    element = rq.args[0] == "on";
    return {};
}

} // namespace

int cards_there(char kind)
{
    const std::lock_guard lock(cards_mutex);
    return static_cast<int>(
        std::ranges::count_if(cards, [kind](char there) { return kind == 0 || there == kind; }));
}

bool secure_element_there()
{
    const std::lock_guard lock(cards_mutex);
    return element;
}

void cards_listen(void (*fn)())
{
    listeners.push_back(fn);
}

void cards_attach()
{
    word_add("tag", "none|KIND...",
             "the cards before the antenna, of the kinds a, b, f and v; alone, tells them", word_tag);
    word_add("swp", "on|off", "whether a secure element answers on the single wire; alone, tells it",
             word_swp);
    conf_add_word("tag");
    conf_add_word("swp");
}

} // namespace phone
