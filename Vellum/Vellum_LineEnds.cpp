// Line ends are normalised once, when a text is taken in, so that every cursor can look at contiguous text.
#include "Vellum_LineEnds.h"

#include <cstddef>
#include <cstring>

namespace Vellum {

void normalizeLineEnds(std::string& text) {
    std::size_t from = text.find('\r');
    if (from == std::string::npos) return;

    std::size_t to = from;
    while (from < text.size()) {
        // `from` is at a carriage return, `to` at the place of its line feed.
        text[to++] = '\n';
        ++from;
        if (from < text.size() && text[from] == '\n') ++from;

        std::size_t next = text.find('\r', from);
        if (next == std::string::npos) next = text.size();
        std::memmove(text.data() + to, text.data() + from, next - from);
        to += next - from;
        from = next;
    }
    text.resize(to);
}

}  // namespace Vellum
