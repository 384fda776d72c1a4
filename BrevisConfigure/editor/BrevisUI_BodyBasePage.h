// A page for a construct with a body in braces. It adds the names of the keys that such pages share; what becomes of
// them is told by their twins among the global settings.
#pragma once

#include "editor/BrevisUI_StylesBasePage.h"

namespace BrevisUI {

class BodyBasePage : public StylesBasePage {
public:
    using StylesBasePage::StylesBasePage;

    std::string_view wsBeforeOpenKey() const { return twinOf("GLOBAL_WS_BEFORE_OPEN_BRACE"); }
    std::string_view wsAfterOpenKey() const { return twinOf("GLOBAL_WS_AFTER_OPEN_BRACE"); }
    std::string_view wsBeforeCloseKey() const { return twinOf("GLOBAL_WS_BEFORE_CLOSE_BRACE"); }
    std::string_view indentKey() const { return twinOf("GLOBAL_INDENT_CONTENT"); }

protected:
    // The key that takes the value of a key of the global settings; empty if the page has none.
    std::string_view twinOf(std::string_view globalKey) const;
};

}  // namespace BrevisUI
