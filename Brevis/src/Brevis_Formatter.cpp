// The order of the stages. Each stage is a local object of one call; nothing survives a call but its output and its
// messages.
#include "Brevis_Formatter.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "Vellum_LineEnds.h"
#include "format/Brevis_CppFormatter.h"
#include "format/Brevis_CppPreFormatter.h"
#include "guard/Brevis_SeamGuard.h"
#include "wrap/Brevis_CppLineWrapper.h"

namespace Brevis {

namespace {

constexpr const char* analyzingPhase = "Analyzing file:\n%s";
constexpr const char* formattingPhase = "Formatting file:\n%s";
constexpr const char* cancelledText = "Formatting cancelled at user's request.";

// A remark on a tree that is usable as it is; any other report fails the text.
constexpr int strayTokenCode = 2;
// A warning: a part of the text is copied as it stands.
constexpr auto leftAloneCode = static_cast<std::int32_t>(Cpp::ParseCode::LeftAlone);

FormatResult cancelled(Trn::ParseMessageList& messages) {
    messages.push_back({1, {}, 0, cancelledText});
    return {FormatOutcome::Cancelled, {}, 0};
}

// Parses `text` into `root` in one dialect and language. Gives false if it can't be formatted; `reports` tells why, or
// what is left alone.
bool parseAs(Cpp::Dialect dialect, Cpp::Language language, std::string_view text, const Reading& reading,
             Cpp::RootNode& root, Trn::ParseMessageList& reports) {
    Cpp::Lexer lexer(text, dialect, language);
    Cpp::Parser parser(Cpp::Parser::Sketches::LeftOut, dialect);
    reports.clear();
    parser.parse(lexer, root, reports);
    std::erase_if(reports, [](const Trn::ParseMessage& report) { return report.code == strayTokenCode; });
    return std::all_of(reports.begin(), reports.end(), [&](const Trn::ParseMessage& report) {
        return report.code == leftAloneCode && !reading.isStrict;
    });
}

// The same in the dialects and languages that come into question, one after the other.
bool parse(std::string_view text, const Reading& reading, Cpp::RootNode& root, Trn::ParseMessageList& messages) {
    using enum Cpp::Dialect;
    Trn::ParseMessageList reports;
    bool isGood = false;
    const auto attempt = [&](Cpp::Dialect dialect, Cpp::Language language) {
        if (!isGood) isGood = parseAs(dialect, language, text, reading, root, reports);
    };
    if (reading.dialect != DialectChoice::modern) attempt(classic, Cpp::Language::cpp);
    if (reading.dialect != DialectChoice::classic) {
        if (reading.language != LanguageChoice::c) attempt(modern, Cpp::Language::cpp);
        if (reading.language != LanguageChoice::cpp) attempt(modern, Cpp::Language::c);
    }
    messages.insert(messages.end(), std::make_move_iterator(reports.begin()), std::make_move_iterator(reports.end()));
    return isGood;
}

// The end of each pass.
FormatResult mended(std::string_view source, std::string text) {
    const std::size_t seams = SeamGuard(source).mend(text);
    return {FormatOutcome::Formatted, std::move(text), seams};
}

}  // namespace

// Only a text with carriage returns is copied.
FormatResult Formatter::format(const FormatterProperties& properties, std::string_view source,
                               Trn::ParseMessageList& messages, UpdateFunctor& update) const {
    if (source.find('\r') == std::string_view::npos) return formatLines(properties, source, messages, update);
    std::string normalized(source);
    Vellum::normalizeLineEnds(normalized);
    return formatLines(properties, normalized, messages, update);
}

FormatResult Formatter::formatLines(const FormatterProperties& properties, std::string_view source,
                                    Trn::ParseMessageList& messages, UpdateFunctor& update) const {
    std::string text;
    if (!update(analyzingPhase)) return cancelled(messages);
    {
        Cpp::RootNode root;
        if (!parse(source, properties.reading, root, messages)) return {};
        CppPreFormatter preFormatter(properties.regions);
        root.accept(preFormatter);

        if (!update(formattingPhase)) return cancelled(messages);
        CppFormatter formatter(source, properties.scheme);
        root.accept(formatter);
        text = formatter.takeText();
    }
    FormatResult first = mended(source, std::move(text));

    if (!properties.scheme.lineWrap) return first;
    FormatResult second = wrap(properties, first.text, messages);
    if (second.isFormatted()) second.seams += first.seams;
    return second;
}

// Works on a tree of the formatted text and never on the first tree.
FormatResult Formatter::wrap(const FormatterProperties& properties, const std::string& text,
                             Trn::ParseMessageList& messages) const {
    Cpp::RootNode root;
    if (!parse(text, properties.reading, root, messages)) return {};
    CppPreFormatter preFormatter(properties.regions);
    root.accept(preFormatter);
    CppLineWrapper wrapper(properties.scheme, text);
    root.accept(wrapper);
    return mended(text, wrapper.takeText());
}

}  // namespace Brevis
