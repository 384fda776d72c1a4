// Looks for headings; the pages are our own and write them in one way.
#include "help/BrevisUI_HelpSection.h"

namespace BrevisUI {

std::string helpSection(std::string_view pageHtml, std::string_view title) {
    const std::string heading = "<h2>" + std::string(title) + "</h2>";
    const std::size_t at = pageHtml.find(heading);
    if (at == std::string_view::npos) return {};
    const std::string_view rest = pageHtml.substr(at + heading.size());
    return std::string(rest.substr(0, rest.find("<h")));
}

}  // namespace BrevisUI
