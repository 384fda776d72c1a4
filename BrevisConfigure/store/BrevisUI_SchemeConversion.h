// Brings schemes of older program versions up to date. What a scheme does to a text stays the same as far as possible.
#pragma once

#include <string>

#include "store/BrevisUI_PropertySetStore.h"

namespace BrevisUI {

// Whether a scheme was written before schemes told their version.
bool isOldScheme(const Brevis::PropertySet& scheme);
// Converts one scheme, which must be an old one.
void convertOldScheme(Brevis::PropertySet& scheme);

// To be called once after the store was read. Converts every old scheme that isn't built-in and writes the store if
// there was one, which may throw PropertySetStore::WriteError. Gives a text for the user, empty if all is well.
std::string convertOldSchemes(PropertySetStore& store);

}  // namespace BrevisUI
