// The file extensions that count as C or C++ source.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

class ExtensionList {
public:
    // Without dots. Their case doesn't matter.
    explicit ExtensionList(const std::vector<std::string>& extensions);

    // Whether what stands behind the last dot of the path is in the list. A path without a dot never belongs.
    bool holds(std::string_view path) const;

private:
    std::vector<std::string> extensions_;
};

// What stands behind the last dot of the path, white space at its ends removed and in lower case; empty without a dot.
std::string extensionOf(std::string_view path);

}  // namespace BrevisUI
