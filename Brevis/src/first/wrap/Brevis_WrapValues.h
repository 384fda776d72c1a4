// The values of the scheme by which expressions are wrapped.
#pragma once

#include <string_view>

#include "scheme/Brevis_Scheme.h"

namespace Brevis {

// Their meaning is told by Scheme, which must outlive them.
struct WrapValues {
    explicit WrapValues(const Scheme& scheme)
        : lineWrap(scheme.lineWrap),
          rightMargin(scheme.rightMargin),
          wrapStyle(scheme.wrapStyle),
          shiftWrapStyle(scheme.shiftWrapStyle),
          exprWrapStyle(scheme.exprWrapStyle),
          commaWrapStyle(scheme.commaWrapStyle < 0 || scheme.commaWrapStyle > 2 ? 2 : scheme.commaWrapStyle),
          listWrapStrategy(scheme.listWrapStrategy),
          wrapIndent(scheme.wrapIndent.text) {}

    bool lineWrap;
    int rightMargin;
    int wrapStyle;
    int shiftWrapStyle;
    int exprWrapStyle;
    int commaWrapStyle;  // a value beyond 0 to 2 acts as 2
    int listWrapStrategy;
    std::string_view wrapIndent;
    // Changed for the extent of a call: the text stands under an indent of its own already, so that `wrapIndent` isn't
    // added.
    bool noExtraIndent = false;
};

}  // namespace Brevis
