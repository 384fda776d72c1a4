// The little HTML that the help is made of, and the way back from it to plain text.
#pragma once

#include <string>
#include <string_view>

namespace BrevisUI {

// Plain text as it stands in HTML.
std::string toHtml(std::string_view text);
// The words of HTML without its tags; white space as it comes, and a blank for each tag that is not part of a
// sentence.
std::string toPlainText(std::string_view html);
// What stands between the first `<tag>` and `</tag>`, without tags; empty if there is none.
std::string textOfElement(std::string_view html, std::string_view tag);

}  // namespace BrevisUI
