// A set of characters as a table: one load tells whether a character is in it, in every locale. A pure value type.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace Vellum {

class CharSet {
public:
    explicit constexpr CharSet(std::string_view characters) {
        for (const char c : characters) has_[static_cast<unsigned char>(c)] = true;
    }

    constexpr bool has(char c) const { return has_[static_cast<unsigned char>(c)]; }

    // The offset of the first character at or behind `from` that is in the set, or the length of the text.
    constexpr std::size_t findIn(std::string_view text, std::size_t from = 0) const {
        // Four a round: every character of a run passes here.
        for (; from + 4 <= text.size(); from += 4) {
            if (has(text[from])) return from;
            if (has(text[from + 1])) return from + 1;
            if (has(text[from + 2])) return from + 2;
            if (has(text[from + 3])) return from + 3;
        }
        while (from < text.size() && !has(text[from])) ++from;
        return from;
    }
    constexpr bool isIn(std::string_view text) const { return findIn(text) < text.size(); }

private:
    std::array<bool, 256> has_{};
};

}  // namespace Vellum
