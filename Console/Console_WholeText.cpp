// Characters by their first byte, with the limits that keep out surrogates and forms that are too long.
#include "Console_WholeText.h"

#include <cstdint>

namespace Console {

namespace {

constexpr std::string_view replacement = "\xef\xbf\xbd";

// How many bytes the character at the begin of the text has; 0 if there is none that may stand.
std::size_t characterSize(std::string_view text) {
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned char lead = byteAt(0);
    if (lead < 0x80) return lead >= 0x20 || lead == '\t' || lead == '\n' || lead == '\r' ? lead != 0x7f : 0;
    const std::size_t size = lead >= 0xf0 ? 4 : lead >= 0xe0 ? 3 : 2;
    if (lead < 0xc2 || lead > 0xf4 || text.size() < size) return 0;
    std::uint32_t value = lead & (0x7fU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if ((byteAt(i) & 0xc0) != 0x80) return 0;
        value = value << 6 | (byteAt(i) & 0x3fU);
    }
    constexpr std::uint32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = value >= 0xd800 && value < 0xe000;
    const bool isNoCharacter = value == 0xfffe || value == 0xffff || value > 0x10ffff;
    return value < smallest[size] || isSurrogate || isNoCharacter ? 0 : size;
}

}  // namespace

std::string wholeText(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t size = characterSize(text);
        result += size == 0 ? replacement : text.substr(0, size);
        text.remove_prefix(size == 0 ? 1 : size);
    }
    return result;
}

}  // namespace Console
