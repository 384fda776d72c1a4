// The steps from a name to a file name, in their order.
#include "store/BrevisUI_SchemeFilename.h"

#include <algorithm>

#include "store/BrevisUI_PropertySetStore.h"

namespace BrevisUI {

namespace {

using namespace std::string_view_literals;

// What common file systems take, with room for a second extension.
constexpr std::size_t longestFilename = 255;
constexpr std::string_view extension = PropertySetStore::extension;

// The last character takes part: a byte that would end the name for the system.
constexpr std::string_view refused = "<>:\\/|?\0"sv;

// No character of several bytes is cut in the middle.
std::string_view cut(std::string_view text, std::size_t length) {
    if (text.size() <= length) return text;
    constexpr unsigned char leadMask = 0xC0, continuation = 0x80;
    while (length > 0 && (static_cast<unsigned char>(text[length]) & leadMask) == continuation) --length;
    return text.substr(0, length);
}

// Two dots become one underscore, from left to right.
void replaceDoubleDots(std::string& text) {
    std::size_t place = 0;
    while ((place = text.find("..", place)) != std::string::npos) text.replace(place++, 2, "_");
}

}  // namespace

std::string schemeFilename(std::string_view name, int counter) {
    const std::string suffix = counter > 0 ? "_" + std::to_string(counter) : "";
    std::string file(cut(name, longestFilename - 2 * extension.size() - suffix.size()));
    file.append(suffix).append(extension);
    std::replace_if(
        file.begin(), file.end(), [](char c) { return refused.find(c) != refused.npos; }, '_');
    replaceDoubleDots(file);
    // A dot at the end of the name has taken that of the extension with it.
    if (!file.ends_with(extension)) file.append(extension);
    return file;
}

}  // namespace BrevisUI
