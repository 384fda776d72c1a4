// Every text that the scheme store and the conversion of old schemes show to a user.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

// The file at `path` is no scheme or can't be read.
std::string readErrorText(std::string_view path);
// The scheme file at `path` in the store's directory can't be written.
std::string writeErrorText(std::string_view path, std::string_view directory);
// The schemes of an older version that couldn't be converted, as their files are write-protected. Empty without one.
std::string unconvertibleText(const std::vector<std::string>& names);

}  // namespace BrevisUI
