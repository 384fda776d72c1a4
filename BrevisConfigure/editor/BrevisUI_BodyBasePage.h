// A page for a construct with a body in braces. It adds the names of the keys that such pages share; what becomes of
// them is told by their twins among the global settings.
#pragma once

#include "editor/BrevisUI_StylesBasePage.h"

namespace BrevisUI {

class BodyBasePage : public StylesBasePage {
public:
    using StylesBasePage::StylesBasePage;

    std::string_view wsBeforeOpenKey() const;
    std::string_view wsAfterOpenKey() const;
    std::string_view wsBeforeCloseKey() const;
    std::string_view indentKey() const;
};

}  // namespace BrevisUI
