// The tab size that a text was written with, as far as the text shows it.
#pragma once

#include <string_view>

namespace Brevis {

// The size under which lines next to each other agree best: what stands behind wide gaps in one column, lines below an
// open bracket, bodies further to the right than their heads. `tabSize` if nothing speaks clearly for another one.
int tabSizeOf(std::string_view source, int tabSize);

}  // namespace Brevis
