// What each command of corvane-inspect shows.
#include "Console_InspectCommands.h"

#include <optional>
#include <utility>
#include <vector>

#include "BrevisUI_Messages.h"
#include "Brevis_Formatter.h"
#include "Console_SchemeFinder.h"
#include "Console_SchemeLibrary.h"
#include "Console_SchemePrinter.h"
#include "Console_SourceText.h"
#include "Console_StandardStreams.h"
#include "Console_TreePrinter.h"
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "Trn_Escapes.h"
#include "first/format/Brevis_CppPreFormatter.h"
#include "run/Brevis_SourceReader.h"
#include "second/Brevis_GapReport.h"

namespace Console {

namespace {

std::optional<SourceText> readSource(const std::string& file) {
    std::string complaint;
    std::optional<SourceText> source = readSourceText(file, complaint);
    if (!source) complainOfInspect(complaint);
    return source;
}

void writeMessages(const SourceText& source, const Trn::ParseMessageList& messages) {
    for (const Trn::ParseMessage& message : messages) {
        writeErrorLine(BrevisUI::parseMessageLine(source.name, message));
    }
}

void writeRemarks(const std::vector<Remark>& remarks) {
    for (const Remark& remark : remarks) writeErrorLine(remark.text);
}

LoadedScheme loadAndRemark(const std::string& path) {
    LoadedScheme loaded = loadScheme(path);
    writeRemarks(loaded.remarks);
    return loaded;
}

// The scheme that corvane-format would take.
std::string schemePath(const InspectOptions& options) {
    if (!options.scheme.empty()) {
        GivenScheme given = findGivenScheme(options.scheme);
        writeRemarks(given.remarks);
        return std::move(given.path);
    }
    return SchemeFinder(shippedSchemePath()).pathFor(isStandardInput(options.file) ? "" : options.file);
}

}  // namespace

void complainOfInspect(const std::string& complaint) { writeErrorLine(std::string(inspectProgram) + ": " + complaint); }

int showTokens(const InspectOptions& options, std::string& out) {
    const std::optional<SourceText> source = readSource(options.file);
    if (!source) return inspectTrouble;
    const Brevis::Reading reading = readingOf(source->name, options.reading);
    const bool isModern = reading.dialect == Brevis::DialectChoice::modern;
    const bool isC = reading.language == Brevis::LanguageChoice::c;
    Cpp::Lexer lexer(source->text, isModern ? Cpp::Dialect::modern : Cpp::Dialect::classic,
                     isC ? Cpp::Language::c : Cpp::Language::cpp);
    for (;;) {
        const Trn::Token token = lexer.next();
        out += std::to_string(token.kind()) + '\t' + printPosition(token.first()) + '-' + printPosition(token.last()) +
               '\t' + Trn::escape(token.text()) + '\n';
        if (token.kind() == Trn::Kind::EndOfInput) return inspectGood;
    }
}

namespace {

// Comments and directives among the tokens; those without a role have `-`.
std::string printRoles(const Cpp::TokenTable& table) {
    std::string out;
    const Trn::TokenBuffer& tokens = table.tokens();
    for (Trn::TokenIndex token = 1; tokens.kind(token) != Trn::Kind::EndOfInput; ++token) {
        const Cpp::Role role = table.role(token);
        out += printPosition(tokens.first(token)) + '\t' + Trn::escape(tokens.text(token)) + '\t';
        out += role == Cpp::Role::None ? "-" : Cpp::nameOf(role);
        out += '\n';
    }
    return out;
}

int showRoles(const SourceText& source, Cpp::Language language, const Cpp::MacroNames& macros, std::string& out) {
    Cpp::Lexer lexer(source.text, Cpp::Dialect::modern, language);
    Cpp::RootNode root;
    Trn::ParseMessageList messages;
    Cpp::Parser parser(Cpp::Parser::Sketches::LeftOut, Cpp::Dialect::modern, Cpp::Parser::Roles::Found);
    parser.know(macros);
    parser.parse(lexer, root, messages);
    writeMessages(source, messages);
    if (!root.tokens()) return inspectTrouble;
    out = printRoles(*root.tokens());
    return inspectGood;
}

}  // namespace

int showTree(const InspectOptions& options, std::string& out) {
    const std::optional<SourceText> source = readSource(options.file);
    if (!source) return inspectTrouble;
    Cpp::MacroNames macros;
    if (!options.scheme.empty()) {
        const LoadedScheme loaded = loadAndRemark(schemePath(options));
        if (!loaded.good) return inspectTrouble;
        macros = Brevis::FormatterProperties(loaded.scheme).macros;
    }
    if (options.roles) {
        const bool isC = readingOf(source->name, options.reading).language == Brevis::LanguageChoice::c;
        return showRoles(*source, isC ? Cpp::Language::c : Cpp::Language::cpp, macros, out);
    }
    Cpp::RootNode root;
    Trn::ParseMessageList messages;
    Brevis::SourceReader reader(readingOf(source->name, options.reading), Cpp::Parser::Sketches::Made);
    reader.know(macros);
    reader.read(source->text, root, messages);
    writeMessages(*source, messages);
    if (options.preformat) {
        Brevis::CppPreFormatter preFormatter(Brevis::regionTable());
        root.accept(preFormatter);
    }
    out = printTree(root);
    return inspectGood;
}

int showWrapped(const InspectOptions& options, std::string& out) {
    const std::optional<SourceText> source = readSource(options.file);
    if (!source) return inspectTrouble;
    const std::string path = schemePath(options);
    const LoadedScheme loaded = loadAndRemark(path);
    if (!loaded.good) return inspectTrouble;

    Trn::ParseMessageList messages;
    const Brevis::FormatterProperties properties(loaded.scheme);
    if (Brevis::hasGapReport(properties.scheme)) {
        complainOfInspect("the scheme \"" + path +
                          "\" is for the second edition of the rules, which wraps lines in no pass of its own");
        return inspectTrouble;
    }
    Brevis::FormatResult result = Brevis::Formatter().wrap(properties, source->text, messages);
    writeMessages(*source, messages);
    if (!result.isFormatted()) return inspectTrouble;
    out = std::move(result.text);
    return inspectGood;
}

int showGaps(const InspectOptions& options, std::string& out) {
    std::optional<SourceText> source = readSource(options.file);
    if (!source) return inspectTrouble;
    dropByteOrderMark(*source);
    const std::string path = schemePath(options);
    const LoadedScheme loaded = loadAndRemark(path);
    if (!loaded.good) return inspectTrouble;
    Brevis::FormatterProperties properties(loaded.scheme);
    if (!Brevis::hasGapReport(properties.scheme)) {
        complainOfInspect(noDecisionsMessage(path));
        return inspectTrouble;
    }
    properties.reading = readingOf(source->name, options.reading);

    Trn::ParseMessageList messages;
    const auto changes = Brevis::findGapChanges(properties, source->text, messages);
    writeMessages(*source, messages);
    if (!changes) return inspectTrouble;
    for (const Brevis::GapChange& change : *changes) {
        const std::string_view before = std::string_view(source->text).substr(change.begin, change.end - change.begin);
        out += printPosition(change.place) + '\t' + std::string(nameOf(change)) + '\t' + Trn::escape(before) + '\t' +
               Trn::escape(change.text) + '\n';
    }
    return inspectGood;
}

int showScheme(const InspectOptions& options, std::string& out) {
    const std::string path = schemePath(options);
    const LoadedScheme loaded = loadAndRemark(path);
    if (!loaded.good) return inspectTrouble;
    out = "# " + path + '\n' + printScheme(loaded.scheme);
    return inspectGood;
}

}  // namespace Console
