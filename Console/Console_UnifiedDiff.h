// Shows what formatting would change. It relies on what a formatter does: both texts are the same once white space is
// taken out. That makes the comparison linear in the texts, whatever has changed.
#pragma once

#include <string>
#include <string_view>

namespace Console {

// A unified diff with three lines of context, empty for equal texts. `name` stands in both head lines. For texts that
// differ in more than white space the result is right too, but may show more lines than needed.
std::string unifiedDiff(std::string_view name, std::string_view before, std::string_view after, bool coloured);

}  // namespace Console
