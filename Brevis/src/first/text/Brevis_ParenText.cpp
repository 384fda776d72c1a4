// The outer parentheses are the first open and the last close one, whatever stands between them.
#include "first/text/Brevis_ParenText.h"

#include "first/text/Brevis_Gaps.h"

namespace Brevis {

ParenParts::ParenParts(std::string_view text) : inner(text) {
    const std::size_t first = text.find('(');
    const std::size_t last = text.rfind(')');
    if (first == std::string_view::npos || last == std::string_view::npos || last < first) return;
    open = text.substr(0, first + 1);
    inner = text.substr(first + 1, last - first - 1);
    close = text.substr(last);
}

void padInsideParens(std::string& text, const WsProperty& afterOpen, const WsProperty& beforeClose) {
    if (text.size() < 2) return;
    std::string inner = text.substr(1, text.size() - 2);
    if (afterOpen.isSet) {
        trimLeft(inner);
        inner.insert(0, afterOpen.text);
    }
    // A line comment in front of the parenthesis keeps its line end.
    if (beforeClose.isSet) setGapTrailing(inner, beforeClose.text);
    text.replace(1, text.size() - 2, inner);
}

}  // namespace Brevis
