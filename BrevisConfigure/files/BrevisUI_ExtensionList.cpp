// Compares extensions without regard to case.
#include "files/BrevisUI_ExtensionList.h"

#include <algorithm>

#include "files/BrevisUI_TextLines.h"

namespace BrevisUI {

ExtensionList::ExtensionList(const std::vector<std::string>& extensions) {
    for (const std::string& extension : extensions) extensions_.push_back(lowerCase(extension));
}

// The dot is looked for by itself: an entry of the list may be empty, and "name." then belongs where "name" doesn't.
bool ExtensionList::holds(std::string_view path) const {
    return path.find('.') != std::string_view::npos && std::ranges::count(extensions_, extensionOf(path)) > 0;
}

std::string extensionOf(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    return dot == std::string_view::npos ? std::string() : lowerCase(trimBlanks(path.substr(dot + 1)));
}

}  // namespace BrevisUI
