// The two forms of a white-space string: its real characters, and the escaped text in a scheme file or a preview.
#pragma once

#include <string>
#include <string_view>

#include "Trn_Escapes.h"

namespace Brevis {

inline std::string unescapeText(std::string_view text) { return Trn::unescape(text); }
inline std::string escapeText(std::string_view text) { return Trn::escape(text); }

}  // namespace Brevis
