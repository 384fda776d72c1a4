// The text form of a list of file extensions, as a user types it. Pure functions of their arguments.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

// The pieces between blanks, semicolons and commas, each without a dot at either end.
std::vector<std::string> parseExtensions(std::string_view text);
// The pieces with a blank between two of them.
std::string joinExtensions(const std::vector<std::string>& extensions);

// Without the white space and the dots at both ends.
std::string bareExtension(std::string_view text);
// False if the bare extension holds a character that can't stand in a file name.
bool isValidExtension(std::string_view text);

}  // namespace BrevisUI
