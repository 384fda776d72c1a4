// The keys of a body page, found by their twins.
#include "editor/BrevisUI_BodyBasePage.h"

namespace BrevisUI {

std::string_view BodyBasePage::twinOf(std::string_view globalKey) const {
    for (const PageField& field : fields()) {
        if (field.property->globalTwin == globalKey) return field.key();
    }
    return {};
}

}  // namespace BrevisUI
