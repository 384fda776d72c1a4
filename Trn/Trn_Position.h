// The name under which tokens and nodes use the position type.
#pragma once

#include "Vellum_Position.h"

namespace Trn {

using Vellum::Position;

}  // namespace Trn
