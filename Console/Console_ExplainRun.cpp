// Finds file, line and scheme, and has the report of the engine put into words.
#include "Console_ExplainRun.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "BrevisUI_Encoding.h"
#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "Console_Explanation.h"
#include "Console_FormatRun.h"
#include "Console_SchemeChoice.h"
#include "Console_SourceText.h"

namespace Console {

namespace {

// FILE or FILE:LINE. A file that has such a name is meant itself.
struct Target {
    std::string file;
    std::size_t line = 0;  // 0: all of them
};

Target parseTarget(const std::string& text) {
    const std::size_t colon = text.rfind(':');
    if (colon == std::string::npos || colon == 0 || BrevisUI::fileExists(text)) return {text};
    Target target{text.substr(0, colon)};
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data() + colon + 1, end, target.line);
    if (error != std::errc() || rest != end || target.line == 0) return {text};
    return target;
}

int fail(const std::string& complaint) {
    writeErrorLine("corvane-format: " + complaint);
    return exitTrouble;
}

std::size_t countLines(std::string_view text) {
    const auto feeds = static_cast<std::size_t>(std::ranges::count(text, '\n'));
    return feeds + (text.empty() || text.ends_with('\n') ? 0 : 1);
}

}  // namespace

int explainFile(const FormatOptions& options, StandardOutput& output) {
    const Target target = parseTarget(options.explained);
    std::string complaint;
    std::optional<SourceText> source = readSourceText(target.file, complaint);
    if (!source) return fail(complaint);
    if (BrevisUI::encodingOf(source->text) != BrevisUI::Encoding::Bytes) {
        return fail("'" + source->name + "' is in an encoding that is not formatted");
    }
    dropByteOrderMark(*source);
    if (target.line > countLines(source->text)) {
        return fail("'" + source->name + "' has " + std::to_string(countLines(source->text)) + " lines");
    }

    SchemeChoice schemes(options.scheme);
    const SchemeChoice::Choice choice = schemes.forFile(isStandardInput(target.file) ? "" : target.file);
    for (const Remark& remark : schemes.remarks()) writeErrorLine(remark.text);
    for (const Remark& remark : choice.scheme->remarks) writeErrorLine(remark.text);
    std::string schemeText;
    if (!choice.scheme->good || !BrevisUI::readFile(choice.path, schemeText)) return exitTrouble;
    Brevis::FormatterProperties properties = choice.scheme->properties;
    if (!Brevis::hasGapReport(properties.scheme)) return fail(noDecisionsMessage(choice.path));
    properties.reading = readingOf(source->name, options.reading);

    Trn::ParseMessageList messages;
    auto changes = Brevis::findGapChanges(properties, source->text, messages);
    for (const Trn::ParseMessage& message : messages) {
        writeErrorLine(BrevisUI::parseMessageLine(source->name, message));
    }
    if (!changes) return exitTrouble;
    if (target.line > 0) *changes = changesOfLine(*changes, target.line);
    if (changes->empty()) {
        output.write(source->name + (target.line > 0 ? ":" + std::to_string(target.line) : "") +
                     ": nothing would change.\n");
        return exitGood;
    }
    output.write(explainChanges(ExplainedScheme(choice.path, schemeText), source->name, source->text, *changes));
    return exitGood;
}

}  // namespace Console
