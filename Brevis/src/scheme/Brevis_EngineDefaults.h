// The defaults that a visitor applies to its private copy of a scheme before it reads any key.
#pragma once

#include "scheme/Brevis_PropertySet.h"

namespace Brevis {

void applyEngineDefaults(PropertySet& properties);

// A copy of the scheme with the defaults applied.
PropertySet withEngineDefaults(const PropertySet& properties);

}  // namespace Brevis
