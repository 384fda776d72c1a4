// A source text for a command that looks at one text and writes none.
#pragma once

#include <optional>
#include <string>

#include "scheme/Brevis_FormatterProperties.h"

namespace Console {

struct SourceText {
    std::string name;  // for messages
    std::string text;  // its line ends are line feeds
};

bool isStandardInput(const std::string& file);  // "-", or nothing

// Nothing if the file can't be read, with the reason in `complaint`.
std::optional<SourceText> readSourceText(const std::string& file, std::string& complaint);

// A format run doesn't see the mark, and so it counts for no column there.
void dropByteOrderMark(SourceText& source);

// How a text of this name is read: one whose name ends in ".c" is C, unless a language is given.
Brevis::Reading readingOf(const std::string& name, Brevis::Reading reading);

// What a user is told who asks for the decisions that a scheme of the first edition doesn't make.
std::string noDecisionsMessage(const std::string& schemePath);

}  // namespace Console
