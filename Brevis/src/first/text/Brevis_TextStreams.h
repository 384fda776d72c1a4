// The stream types of the layer below under the names that the engine uses.
#pragma once

#include "Vellum_ITextDocStream.h"
#include "Vellum_OIndentStream.h"
#include "Vellum_Position.h"

namespace Brevis {

using Vellum::IndentStreamSettings;
using Vellum::IndentStringGuard;
using Vellum::ITextDocStream;
using Vellum::LeadingWsGuard;
using Vellum::OIndentStream;
using Vellum::Position;
using Vellum::Verbatim;

}  // namespace Brevis
