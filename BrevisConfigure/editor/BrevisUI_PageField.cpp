// The form of a white space field's text.
#include "editor/BrevisUI_PageField.h"

#include "editor/BrevisUI_WhiteSpaceEntry.h"

namespace BrevisUI {

std::string PageField::entry() const { return refusedEntry ? *refusedEntry : showWhiteSpace(value.text); }

}  // namespace BrevisUI
