// The forms, the most telling first: a path with a line, a path with a severity, a path between quotes.
#include "BrevisUI_MessagePlace.h"

#include <array>
#include <charconv>

namespace BrevisUI {

namespace {

constexpr std::array<std::string_view, 3> severityWords{"error: ", "warning: ", "information: "};
constexpr std::string_view parting = " : ";
constexpr std::string_view columnWord = "col ";

// The number at the beginning of the text, 0 without one; `text` goes on behind it.
int takeNumber(std::string_view& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc()) return 0;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number > 0 ? number : 0;
}

bool takeText(std::string_view& text, std::string_view start) {
    if (!text.starts_with(start)) return false;
    text.remove_prefix(start.size());
    return true;
}

bool takeSeverity(std::string_view& text) {
    for (const std::string_view word : severityWords) {
        if (takeText(text, word)) return true;
    }
    return false;
}

// `(12)` at the end of what stands in front of the parting; it goes.
int takeLine(std::string_view& path) {
    const std::size_t open = path.rfind('(');
    if (open == std::string_view::npos || !path.ends_with(')')) return 0;
    std::string_view digits = path.substr(open + 1);
    const std::size_t before = digits.size();
    const int line = takeNumber(digits);
    // A line 0 belongs to no line and is still no part of the path.
    const bool isNumber = digits == ")" || (before == 2 && digits == "0)");
    if (isNumber) path.remove_suffix(path.size() - open);
    return isNumber ? line : 0;
}

std::optional<MessagePlace> findParted(std::string_view message) {
    std::size_t place = message.find(parting);
    for (; place != std::string_view::npos; place = message.find(parting, place + 1)) {
        std::string_view rest = message.substr(place + parting.size());
        if (!takeSeverity(rest)) continue;
        std::string_view path = message.substr(0, place);
        MessagePlace found;
        found.line = takeLine(path);
        found.path = path;
        if (found.line > 0 && takeText(rest, columnWord)) found.column = takeNumber(rest);
        return found;
    }
    return std::nullopt;
}

std::optional<MessagePlace> findQuoted(std::string_view message) {
    const std::size_t open = message.find('"');
    const std::size_t close = message.find('"', open + 1);
    if (open == std::string_view::npos || close == std::string_view::npos) return std::nullopt;
    return MessagePlace{std::string(message.substr(open + 1, close - open - 1)), 0, 0};
}

}  // namespace

std::optional<MessagePlace> findPlace(std::string_view message) {
    // A path in front comes before one that the text behind it quotes.
    std::optional<MessagePlace> place = message.starts_with('/') ? findParted(message) : findQuoted(message);
    return place && place->path.starts_with('/') ? place : std::nullopt;
}

}  // namespace BrevisUI
