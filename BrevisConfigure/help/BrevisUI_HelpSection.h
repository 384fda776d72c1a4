// Takes the section of a control out of a page of the help, so that what is told beside the control is what the page
// tells.
#pragma once

#include <string>
#include <string_view>

namespace BrevisUI {

// The HTML below the heading of the second level with this title, up to the next heading; empty without one.
std::string helpSection(std::string_view pageHtml, std::string_view title);

}  // namespace BrevisUI
