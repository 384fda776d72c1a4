// Looks at byte order marks and at where NUL bytes stand.
#include "BrevisUI_Encoding.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace BrevisUI {

namespace {

constexpr std::string_view utf8Mark = "\xef\xbb\xbf";
constexpr std::string_view utf16Marks[] = {"\xff\xfe", "\xfe\xff", {"\0\0\xfe\xff", 4}};

// In UTF-16, code has a NUL in nearly every second place, and there alone.
bool isSpacedWithNuls(std::string_view text) {
    constexpr std::size_t enough = 4096;
    const std::string_view sample = text.substr(0, enough);
    std::size_t nuls[2] = {0, 0};
    for (std::size_t index = 0; index < sample.size(); ++index) nuls[index % 2] += sample[index] == '\0' ? 1 : 0;
    return std::max(nuls[0], nuls[1]) * 4 > sample.size() && std::min(nuls[0], nuls[1]) * 16 < sample.size();
}

}  // namespace

Encoding encodingOf(std::string_view text) {
    const auto begins = [&](std::string_view mark) { return text.starts_with(mark); };
    if (std::any_of(std::begin(utf16Marks), std::end(utf16Marks), begins)) return Encoding::Utf16;
    if (text.find('\0') == std::string_view::npos) return Encoding::Bytes;
    return isSpacedWithNuls(text) ? Encoding::Utf16 : Encoding::Nul;
}

std::string_view byteOrderMarkOf(std::string_view text) {
    return text.starts_with(utf8Mark) ? utf8Mark : std::string_view();
}

}  // namespace BrevisUI
