// Line ends: every carriage return, alone or with a line feed behind it, becomes one line feed.
#pragma once

#include <string>

namespace Vellum {

// Rewrites `text` in place; a text without carriage returns is only scanned.
void normalizeLineEnds(std::string& text);

}  // namespace Vellum
