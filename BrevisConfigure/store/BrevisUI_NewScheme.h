// The scheme that a user without any scheme starts from.
#pragma once

#include <string_view>

#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

inline constexpr std::string_view newSchemeName = "New Scheme";

// Leaves almost every place as it is; the pages of the editor fill in their own values.
Brevis::PropertySet newScheme();

}  // namespace BrevisUI
