// The form of a text field's text.
#include "editor/BrevisUI_PageField.h"

#include "editor/BrevisUI_NamesEntry.h"
#include "editor/BrevisUI_WhiteSpaceEntry.h"

namespace BrevisUI {

std::string PageField::entry() const {
    if (refusedEntry) return *refusedEntry;
    if (value.isAbsent) return {};
    return kind == FieldKind::Names ? value.text : showWhiteSpace(value.text);
}

std::optional<std::string> PageField::read(std::string_view entry) const {
    return kind == FieldKind::Names ? readNames(entry) : readWhiteSpace(entry);
}

}  // namespace BrevisUI
