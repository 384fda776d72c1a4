// Words and their characters.
#include "editor/BrevisUI_NamesEntry.h"

#include <algorithm>
#include <sstream>

#include "Cpp_CharClasses.h"

namespace BrevisUI {

namespace {

constexpr bool isNameCharacter(char c) {
    return static_cast<unsigned char>(c) >= 0x80 || Cpp::isAny(c, Cpp::CharClass::word);
}

bool isName(std::string_view word) {
    return !Cpp::isAny(word.front(), Cpp::CharClass::digit) && std::ranges::all_of(word, isNameCharacter);
}

}  // namespace

std::optional<std::string> readNames(std::string_view entry) {
    std::istringstream in{std::string(entry)};
    std::string names;
    for (std::string word; in >> word;) {
        if (!isName(word)) return std::nullopt;
        names += (names.empty() ? "" : " ") + word;
    }
    return names;
}

}  // namespace BrevisUI
