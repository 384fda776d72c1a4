// Draws schemes from the whole catalogue of keys, from those that a person would write to those that only a broken
// scheme file holds.
#pragma once

#include <span>

#include "Fuzz_Draws.h"
#include "scheme/Brevis_PropertySet.h"

namespace Fuzz {

// Each key of the catalogue is absent or has a value of its type. A draw has one temper: sane (values like those of the
// shipped schemes), wild (any value, numbers beyond their range and odd white space too), or both mixed. Half of the
// draws wrap lines, at a right margin of 1 to 200. Draws of zeros only give an empty scheme.
// A string value is always white space: the engine writes values as they are.
Brevis::PropertySet drawScheme(Draws& draws);
// The same for the second edition, whose keys are drawn too. Lines are not wrapped.
Brevis::PropertySet drawSecondScheme(Draws& draws);
// Takes each value from one of the schemes, or leaves the key out as that does.
Brevis::PropertySet drawMixedScheme(Draws& draws, std::span<const Brevis::PropertySet> schemes);

}  // namespace Fuzz
