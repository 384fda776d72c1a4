// The start of a line decides; the rest of it goes through untouched, so a text is written line by line.
#include "Vellum_OIndentBuf.h"

#include <algorithm>
#include <cctype>

namespace Vellum {

void OIndentBuf::write(std::string_view text) {
    while (!text.empty()) {
        if (startsLine() && text.front() != '\n') {
            if (!keepLeadingWs_ && std::isspace(static_cast<unsigned char>(text.front()))) {
                text.remove_prefix(1);
                continue;
            }
            put(indent_);
        }
        const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        putLine(text.substr(0, length));
        text.remove_prefix(length);
    }
}

}  // namespace Vellum
