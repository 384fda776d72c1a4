#include "FormatRun.h"

#include <cctype>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "Brevis_Formatter.h"
#include "Cpp_Lexer.h"
#include "Vellum_LineEnds.h"

namespace Harness {

FormatRun formatText(const Brevis::PropertySet& scheme, const std::string& text, const Brevis::Reading& reading) {
    FormatRun run;
    Brevis::UpdateFunctor update;
    Brevis::FormatterProperties properties(scheme);
    properties.reading = reading;
    Brevis::FormatResult result = Brevis::Formatter().format(properties, text, run.messages, update);
    run.isFormatted = result.isFormatted();
    run.text = std::move(result.text);
    return run;
}

std::filesystem::path sourceDirectory() { return CORVANE_SOURCE_DIR; }

std::string readFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

Brevis::PropertySet readScheme(const std::filesystem::path& path) {
    std::ifstream in(path);
    Brevis::PropertySet scheme;
    scheme.read(in);
    if (in.fail()) throw std::runtime_error("no scheme file: " + path.string());
    return scheme;
}

Brevis::PropertySet readSchemeNamed(const std::string& name) {
    const std::filesystem::path own = sourceDirectory() / "tests" / "golden" / "schemes" / (name + ".fsc");
    return readScheme(std::filesystem::exists(own) ? own : sourceDirectory() / "schemes" / (name + ".fsc"));
}

std::string withoutWhiteSpace(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (!std::isspace(static_cast<unsigned char>(c))) result += c;
    }
    return result;
}

std::string tokenLines(std::string text, Cpp::Dialect dialect) {
    Vellum::normalizeLineEnds(text);
    Cpp::Lexer lexer(text, dialect);
    std::string lines;
    for (Trn::Token token = lexer.next(); token.kind() != Trn::Kind::EndOfInput; token = lexer.next()) {
        lines += std::to_string(token.kind()) + ' ' + withoutWhiteSpace(token.text()) + '\n';
    }
    return lines;
}

std::string messageLines(const Trn::ParseMessageList& messages) {
    std::string lines;
    for (const Trn::ParseMessage& message : messages) {
        lines += std::to_string(message.position.line) + ':' + std::to_string(message.position.column) + " severity " +
                 std::to_string(message.severity) + " code " + std::to_string(message.code) + ": " + message.text +
                 '\n';
    }
    return lines;
}

namespace {

// The stretch of `text` round the first place where it differs from `other`.
std::string firstDifference(const std::string& text, const std::string& other) {
    std::size_t at = 0;
    while (at < text.size() && at < other.size() && text[at] == other[at]) ++at;
    const std::size_t from = at < 40 ? 0 : at - 40;
    return "\"" + text.substr(from, 80) + "\" became \"" + other.substr(from, 80) + "\"";
}

}  // namespace

std::string lossIn(const std::string& input, const std::string& output, Cpp::Dialect dialect) {
    const std::string before = withoutWhiteSpace(input);
    const std::string after = withoutWhiteSpace(output);
    if (before != after) return "characters: " + firstDifference(before, after);
    const std::string tokensBefore = tokenLines(input, dialect);
    const std::string tokensAfter = tokenLines(output, dialect);
    if (tokensBefore != tokensAfter) return "tokens: " + firstDifference(tokensBefore, tokensAfter);
    return {};
}

std::vector<std::string> readExceptions(const std::filesystem::path& path) {
    std::istringstream lines(readFile(path));
    std::vector<std::string> names;
    for (std::string line; std::getline(lines, line);) {
        if (line.empty() || line.front() == '#') continue;
        const std::size_t colon = line.find(": ");
        if (colon == std::string::npos) throw std::runtime_error("no reason given in " + path.string() + ": " + line);
        names.push_back(line.substr(0, colon));
    }
    return names;
}

}  // namespace Harness
