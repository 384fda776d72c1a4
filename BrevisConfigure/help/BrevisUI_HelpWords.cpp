// Cuts texts into words. Case is that of ASCII: the help is written in English.
#include "help/BrevisUI_HelpWords.h"

#include <algorithm>
#include <cctype>

namespace BrevisUI {

namespace {

bool isWordCharacter(char character) {
    const auto byte = static_cast<unsigned char>(character);
    return std::isalnum(byte) || byte >= 0x80 || character == '_';
}

char lower(char character) { return static_cast<char>(std::tolower(static_cast<unsigned char>(character))); }

std::string singleSpaced(std::string_view text) {
    std::string spaced;
    for (const char character : text) {
        const bool isSpace = std::isspace(static_cast<unsigned char>(character));
        if (!isSpace)
            spaced.push_back(character);
        else if (!spaced.empty() && spaced.back() != ' ')
            spaced.push_back(' ');
    }
    while (spaced.ends_with(' ')) spaced.pop_back();
    return spaced;
}

void addParts(std::string_view word, std::vector<std::string>& words) {
    while (!word.empty()) {
        const std::string_view part = word.substr(0, word.find('_'));
        if (!part.empty()) words.emplace_back(part);
        word.remove_prefix(std::min(word.size(), part.size() + 1));
    }
}

// Where the first word starts that begins with `word`, or else 0.
std::size_t placeOf(std::string_view text, std::string_view word) {
    for (std::size_t at = 0; at + word.size() <= text.size(); ++at) {
        if (at > 0 && isWordCharacter(text[at - 1]) && text[at - 1] != '_') continue;
        const bool matches = std::equal(word.begin(), word.end(), text.begin() + static_cast<std::ptrdiff_t>(at),
                                        [](char a, char b) { return lower(a) == lower(b); });
        if (matches) return at;
    }
    return 0;
}

}  // namespace

std::vector<std::string> searchWords(std::string_view text) {
    std::vector<std::string> words;
    for (std::size_t at = 0; at < text.size();) {
        std::string word;
        for (; at < text.size() && isWordCharacter(text[at]); ++at) word.push_back(lower(text[at]));
        if (word.empty()) {
            ++at;
            continue;
        }
        words.push_back(word);
        if (word.find('_') != std::string::npos) addParts(word, words);
    }
    return words;
}

std::string wordLine(std::string_view text) {
    std::string line;
    for (const std::string& word : searchWords(text)) line.append(" ").append(word);
    return line;
}

std::string excerptAround(std::string_view text, std::string_view word, std::size_t width) {
    const std::string spaced = singleSpaced(text);
    const std::size_t place = placeOf(spaced, word);
    std::size_t begin = place > width / 3 ? place - width / 3 : 0;
    if (begin > 0) begin = std::min(spaced.find(' ', begin), place);
    std::size_t end = std::min(spaced.size(), begin + width);
    if (end < spaced.size()) end = std::max(spaced.rfind(' ', end), place);
    std::string excerpt = singleSpaced(std::string_view(spaced).substr(begin, end - begin));
    if (begin > 0) excerpt.insert(0, "\u2026 ");
    if (end < spaced.size()) excerpt.append(" \u2026");
    return excerpt;
}

}  // namespace BrevisUI
