// The texts of the help as they stand under help/, compiled into the program: wherever it runs from, it has them, and
// they belong to this very version. cmake/EmbedTexts.cmake writes the table.
#pragma once

#include <span>
#include <string_view>

namespace BrevisUI {

struct HelpSource {
    std::string_view name;  // of the file, such as "Classes.htm"
    std::string_view text;
};

// Prose of the pages, *.htm, in ascending order of their names.
std::span<const HelpSource> helpPageSources();
// What is told of the properties, *.txt, one file a page of the scheme editor.
std::span<const HelpSource> helpPropertySources();
// contents.txt.
std::string_view helpContentsSource();

}  // namespace BrevisUI
