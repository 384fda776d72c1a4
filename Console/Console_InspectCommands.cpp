// What each command of corvane-inspect shows.
#include "Console_InspectCommands.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <utility>
#include <vector>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "Brevis_Formatter.h"
#include "Console_SchemeFinder.h"
#include "Console_SchemeLibrary.h"
#include "Console_SchemePrinter.h"
#include "Console_StandardStreams.h"
#include "Console_TreePrinter.h"
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "Trn_Escapes.h"
#include "Vellum_LineEnds.h"
#include "first/format/Brevis_CppPreFormatter.h"
#include "run/Brevis_SourceReader.h"

namespace Console {

namespace {

struct Source {
    std::string name;  // for messages
    std::string text;  // with normalised line ends
};

bool isStandardInput(const std::string& file) { return file.empty() || file == "-"; }

std::optional<Source> readSource(const std::string& file) {
    Source source;
    source.name = isStandardInput(file) ? "<stdin>" : file;
    const bool isRead =
        isStandardInput(file) ? BrevisUI::readStream(stdin, source.text) : BrevisUI::readFile(file, source.text);
    if (!isRead) {
        complainOfInspect("cannot read '" + source.name + "': " + std::strerror(errno));
        return std::nullopt;
    }
    Vellum::normalizeLineEnds(source.text);
    return source;
}

void writeMessages(const Source& source, const Trn::ParseMessageList& messages) {
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

namespace {

// A file whose name ends in ".c" is C, unless a language is given.
Brevis::Reading readingOf(const Source& source, Brevis::Reading reading) {
    if (reading.language == Brevis::LanguageChoice::automatic && source.name.ends_with(".c")) {
        reading.language = Brevis::LanguageChoice::c;
    }
    return reading;
}

}  // namespace

int showTokens(const InspectOptions& options, std::string& out) {
    const std::optional<Source> source = readSource(options.file);
    if (!source) return inspectTrouble;
    const Brevis::Reading reading = readingOf(*source, options.reading);
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

int showRoles(const Source& source, Cpp::Language language, std::string& out) {
    Cpp::Lexer lexer(source.text, Cpp::Dialect::modern, language);
    Cpp::RootNode root;
    Trn::ParseMessageList messages;
    Cpp::Parser(Cpp::Parser::Sketches::LeftOut, Cpp::Dialect::modern, Cpp::Parser::Roles::Found)
        .parse(lexer, root, messages);
    writeMessages(source, messages);
    if (!root.tokens()) return inspectTrouble;
    out = printRoles(*root.tokens());
    return inspectGood;
}

}  // namespace

int showTree(const InspectOptions& options, std::string& out) {
    const std::optional<Source> source = readSource(options.file);
    if (!source) return inspectTrouble;
    if (options.roles) {
        const bool isC = readingOf(*source, options.reading).language == Brevis::LanguageChoice::c;
        return showRoles(*source, isC ? Cpp::Language::c : Cpp::Language::cpp, out);
    }
    Cpp::RootNode root;
    Trn::ParseMessageList messages;
    Brevis::SourceReader reader(readingOf(*source, options.reading), Cpp::Parser::Sketches::Made);
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
    const std::optional<Source> source = readSource(options.file);
    if (!source) return inspectTrouble;
    const LoadedScheme loaded = loadAndRemark(schemePath(options));
    if (!loaded.good) return inspectTrouble;

    Trn::ParseMessageList messages;
    const Brevis::FormatterProperties properties(loaded.scheme);
    Brevis::FormatResult result = Brevis::Formatter().wrap(properties, source->text, messages);
    writeMessages(*source, messages);
    if (!result.isFormatted()) return inspectTrouble;
    out = std::move(result.text);
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
