// Makes the help texts of the programs from their tables.
#pragma once

#include <string>
#include <string_view>

#include "Console_OptionTable.h"

namespace Console {

// What --help writes.
std::string helpText(const ProgramManual& manual);

// Gives the paragraphs of a section one after the other to `take(text)`, and lines that stand as they are to
// `keep(line)`.
template <class Take, class Keep>
void forEachParagraph(std::string_view text, Take take, Keep keep) {
    std::string paragraph;
    const auto flush = [&] {
        if (!paragraph.empty()) take(std::string_view(paragraph));
        paragraph.clear();
    };
    for (bool more = true; more;) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        more = end != std::string_view::npos;
        text.remove_prefix(more ? end + 1 : text.size());
        if (line.empty() || line.starts_with(' ')) flush();
        if (line.starts_with(' ')) keep(line);
        if (line.empty() || line.starts_with(' ')) continue;
        if (!paragraph.empty()) paragraph += ' ';
        paragraph += line;
    }
    flush();
}

}  // namespace Console
