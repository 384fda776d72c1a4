// What a public scheme holds: the property set of the engine. The public headers don't show it.
#pragma once

#include <corvane/scheme.h>

#include "scheme/Brevis_PropertySet.h"

namespace corvane {

struct Scheme::Contents {
    Brevis::PropertySet properties;
};

}  // namespace corvane
