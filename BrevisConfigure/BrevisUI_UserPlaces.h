// Where a user's files and those that come with the program stand. It only works out paths; it opens and makes nothing.
#pragma once

#include <string>

namespace BrevisUI {

// The directory of the user's schemes, that of what runs keep and the file of the user's settings: XDG_DATA_HOME,
// XDG_CACHE_HOME and XDG_CONFIG_HOME lead there, or else the home directory. Empty for a user without a home.
std::string userSchemeDirectory();
std::string userCacheDirectory();
std::string userSettingsPath();

// The schemes that come with the program: in the data directory beside an installed program, in the source tree for a
// program that was built and not installed.
std::string shippedSchemeDirectory();

}  // namespace BrevisUI
