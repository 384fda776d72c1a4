// What a file has beside its text: owner, group, mode, and extended attributes with the access control lists among
// them.
#pragma once

#include "disk/BrevisUI_FileSystem.h"

namespace BrevisUI {

// Gives the file `to` all that `from` has, and takes from it what `from` hasn't. `status` is that of `from`. To be
// called behind the last write, which may take rights away from a file.
std::error_code copyAttributes(FileSystem& system, int from, const struct stat& status, int to);

}  // namespace BrevisUI
