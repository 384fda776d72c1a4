// The reading of the one text.
#include "Console_SourceText.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "BrevisUI_Encoding.h"
#include "BrevisUI_Files.h"
#include "Vellum_LineEnds.h"

namespace Console {

bool isStandardInput(const std::string& file) { return file.empty() || file == "-"; }

std::optional<SourceText> readSourceText(const std::string& file, std::string& complaint) {
    const bool isInput = isStandardInput(file);
    SourceText source;
    source.name = isInput ? "<stdin>" : file;
    const bool isRead = isInput ?
                        BrevisUI::readStream(STDIN_FILENO, source.text) :
                        BrevisUI::readFile(file, source.text);
    if (!isRead) {
        complaint = "cannot read '" + source.name + "': " + std::strerror(errno);
        return std::nullopt;
    }
    Vellum::normalizeLineEnds(source.text);
    return source;
}

void dropByteOrderMark(SourceText& source) { source.text.erase(0, BrevisUI::byteOrderMarkOf(source.text).size()); }

Brevis::Reading readingOf(const std::string& name, Brevis::Reading reading) {
    if (reading.language == Brevis::LanguageChoice::automatic && name.ends_with(".c")) {
        reading.language = Brevis::LanguageChoice::c;
    }
    return reading;
}

std::string noDecisionsMessage(const std::string& schemePath) {
    return "the scheme \"" + schemePath +
           "\" is for the first edition of the rules; what decides a change is known in the second alone";
}

}  // namespace Console
