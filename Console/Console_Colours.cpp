// Escape sequences, as terminals have understood them since the VT100.
#include "Console_Colours.h"

#include <cstdlib>
#include <string_view>

#include "BrevisUI_Messages.h"
#include "Console_StandardStreams.h"

namespace Console {

namespace {

constexpr std::string_view boldRed = "\x1b[1;31m", boldMagenta = "\x1b[1;35m", plain = "\x1b[m";

}  // namespace

bool wantsColours(ColourUse use, int stream) {
    if (use != ColourUse::Auto) return use == ColourUse::Always;
    const char* const unwanted = std::getenv("NO_COLOR");
    const bool isWanted = !unwanted || *unwanted == '\0';
    return isWanted && isCapableTerminal(stream);
}

std::string colouredMessage(const std::string& text, int severity) {
    if (severity < BrevisUI::Severity::warning) return text;
    const bool isError = severity == BrevisUI::Severity::error;
    const std::string_view mark = isError ? ") : error: " : ") : warning: ";
    std::size_t begin = 0;
    std::size_t end = text.size();
    if (const std::size_t found = text.find(mark); found != std::string::npos) {
        begin = found + std::string_view(") : ").size();
        end = found + mark.size() - 1;
    }
    std::string result = text.substr(0, begin);
    result += isError ? boldRed : boldMagenta;
    result.append(text, begin, end - begin);
    result += plain;
    return result.append(text, end);
}

}  // namespace Console
