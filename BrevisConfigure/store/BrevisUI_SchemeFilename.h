// Turns the name of a scheme into a file name. A pure function of its arguments.
#pragma once

#include <string>
#include <string_view>

namespace BrevisUI {

// The name with ".fsc" behind it, without what can't stand in a file name and short enough for any file system. A
// counter above 0 makes another file name for the same name.
std::string schemeFilename(std::string_view name, int counter = 0);

}  // namespace BrevisUI
