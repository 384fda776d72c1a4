// Works out the command that opens a file at a place in an editor of the user's. It starts nothing.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "BrevisUI_MessagePlace.h"

namespace BrevisUI {

// The words of the command. `setting` is a command line of the user's, its words parted by blanks, those with blanks
// of their own between double quotes; {path}, {line} and {column} stand for the place, and the path goes last if it
// isn't named. Without a setting `environment`, the editor of the user's shell, counts if it is one whose way to name a
// place is known here. Empty if neither serves: the system knows best what opens such a file then.
std::vector<std::string> editorCommand(std::string_view setting, std::string_view environment,
                                       const MessagePlace& place);

}  // namespace BrevisUI
