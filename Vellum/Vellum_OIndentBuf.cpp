// The start of a line decides; the rest of it goes through untouched, so a text is written line by line.
#include "Vellum_OIndentBuf.h"

#include "Vellum_WhiteSpace.h"

namespace Vellum {

namespace {

// Without the white space with which its first line begins.
std::string_view withoutBlanksInFront(std::string_view text) {
    std::size_t begin = 0;
    while (begin < text.size() && text[begin] != '\n' && isSpace(text[begin])) ++begin;
    return text.substr(begin);
}

}  // namespace

void OIndentBuf::write(std::string_view text) {
    while (!text.empty()) {
        if (startsLine()) {
            if (!keepLeadingWs_) text = withoutBlanksInFront(text);
            if (text.empty()) return;
            if (text.front() != '\n') put(indent_);
        }
        text.remove_prefix(putLine(text));
    }
}

}  // namespace Vellum
