// Writes what the engine makes of a scheme as text, one property a line, for people who wonder why a value has no
// effect.
#pragma once

#include <string>

#include "scheme/Brevis_PropertySet.h"

namespace Console {

// A line is a key, the value in force and where it comes from, between tabs, in the order of the catalogue. White space
// is escaped and quoted, and a value that nothing gives is `unset`. Keys that the catalogue doesn't know come last.
std::string printScheme(const Brevis::PropertySet& properties);

}  // namespace Console
