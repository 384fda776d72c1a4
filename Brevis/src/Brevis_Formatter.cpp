// The order of the stages. Each stage is a local object of one call; nothing survives a call but its output and its
// messages.
#include "Brevis_Formatter.h"

#include <istream>
#include <iterator>
#include <ostream>
#include <string>

#include "Brevis_CppFormatter.h"
#include "Brevis_CppLineWrapper.h"
#include "Brevis_CppPreFormatter.h"
#include "Brevis_PropertyCatalogue.h"
#include "Brevis_SeamGuard.h"
#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_Parser.h"
#include "Vellum_LineEnds.h"

namespace Brevis {

namespace {

constexpr const char* analyzingPhase = "Analyzing file:\n%s";
constexpr const char* formattingPhase = "Formatting file:\n%s";
constexpr const char* cancelledText = "Formatting cancelled at user's request.";

// A remark on a tree that is usable as it is; any other report fails the text.
constexpr int strayTokenCode = 2;

int reportCancel(Trn::ParseMessageList& messages) {
    messages.push_back({1, {}, 0, cancelledText});
    return 1;
}

std::string readAll(std::istream& in) {
    constexpr std::size_t block = 1 << 16;
    std::string text;
    while (in) {
        const std::size_t length = text.size();
        text.resize(length + block);
        in.read(text.data() + length, block);
        text.resize(length + static_cast<std::size_t>(in.gcount()));
    }
    Vellum::normalizeLineEnds(text);
    return text;
}

// Parses `text` into `root`. Gives the number of reports that fail the text, which it moves to `messages`.
int parse(std::string_view text, Cpp::RootNode& root, Trn::ParseMessageList& messages) {
    Cpp::Lexer lexer(text);
    Cpp::Parser parser;
    Trn::ParseMessageList reports;
    parser.parse(lexer, root, reports);
    std::erase_if(reports, [](const Trn::ParseMessage& report) { return report.code == strayTokenCode; });
    messages.insert(messages.end(), std::make_move_iterator(reports.begin()), std::make_move_iterator(reports.end()));
    return static_cast<int>(reports.size());
}

// The end of each pass.
void mendSeams(std::string_view source, std::string& text, FormatSummary* summary) {
    const std::size_t seams = SeamGuard(source).mend(text);
    if (summary) summary->seams += seams;
}

}  // namespace

int Formatter::format(const FormatterProperties& properties, std::istream& in, std::ostream& out,
                      Trn::ParseMessageList& messages, UpdateFunctor& update, FormatSummary* summary) const {
    const std::string source = readAll(in);
    std::string text;

    if (!update(analyzingPhase)) return reportCancel(messages);
    {
        Cpp::RootNode root;
        if (const int reports = parse(source, root, messages)) return reports;
        CppPreFormatter preFormatter(properties.regions);
        root.accept(preFormatter);

        if (!update(formattingPhase)) return reportCancel(messages);
        CppFormatter formatter(source, properties);
        root.accept(formatter);
        text = formatter.takeText();
    }
    mendSeams(source, text, summary);

    bool wrapsLines = false;
    properties.getBool(Key::LINE_WRAP, wrapsLines);
    if (wrapsLines) {
        if (const int reports = wrap(properties, text, messages, summary)) return reports;
    }

    out.write(text.data(), static_cast<std::streamsize>(text.size()));
    out.flush();
    return 0;
}

// Works on a tree of the formatted text and never on the first tree.
int Formatter::wrap(const FormatterProperties& properties, std::string& text, Trn::ParseMessageList& messages,
                    FormatSummary* summary) const {
    Cpp::RootNode root;
    if (const int reports = parse(text, root, messages)) return reports;
    CppPreFormatter preFormatter(properties.regions);
    root.accept(preFormatter);
    CppLineWrapper wrapper(properties, text);
    root.accept(wrapper);
    std::string wrapped = wrapper.takeText();
    mendSeams(text, wrapped, summary);
    text = std::move(wrapped);
    return 0;
}

}  // namespace Brevis
