// Compares extensions without regard to case.
#include "files/BrevisUI_ExtensionList.h"

#include <algorithm>

namespace BrevisUI {

namespace {

constexpr std::string_view whiteSpace = " \t\n\v\f\r";

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(whiteSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

}  // namespace

ExtensionList::ExtensionList(const std::vector<std::string>& extensions) {
    for (const std::string& extension : extensions) extensions_.push_back(lowerCase(extension));
}

// The dot is looked for by itself: an entry of the list may be empty, and "name." then belongs where "name" doesn't.
bool ExtensionList::holds(std::string_view path) const {
    return path.find('.') != std::string_view::npos && std::ranges::count(extensions_, extensionOf(path)) > 0;
}

std::string extensionOf(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    return dot == std::string_view::npos ? std::string() : lowerCase(trimmed(path.substr(dot + 1)));
}

}  // namespace BrevisUI
