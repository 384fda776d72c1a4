// Works on the tokens round the place of the message, comments and directives left out, joined by single blanks: first
// the statement that holds the place, then the one in front of it.
#include "Soak_RefusalCause.h"

#include <algorithm>
#include <cctype>
#include <regex>
#include <utility>
#include <vector>

#include "Cpp_Lexer.h"

namespace Soak {

namespace {

struct Construct {
    const char* name;
    const char* pattern;
};

// The first that is found counts, so the sure signs come first.
constexpr Construct constructs[] = {
    {"= default, = delete", R"(= (default|delete)\b)"},
    {"override, final", R"(\b(override|final)\b)"},
    {"noexcept", R"(\bnoexcept\b)"},
    {"requires, concept", R"(\b(requires|concept)\b)"},
    {"[[attribute]]", R"(\[ \[)"},
    {"__attribute__", R"(\b__attribute(__)?\b)"},
    {"alignas, _Alignas", R"(\b(alignas|_Alignas)\b)"},
    {"asm", R"(\b(__)?asm(__)?\b)"},
    {"inline namespace", R"(\binline namespace\b)"},
    {"enum class", R"(\benum (class|struct)\b)"},
    {"C++ keyword as a name", R"(\b(class|new|private|protected|public|namespace|template|virtual|friend|explicit|)"
     R"(typename|export) [;,)=\[.])"},
    {"K&R style parameter list", R"(\( (?:\w+ , )*(\w+) (?:, \w+ )*\) [^()=;{}]*\b\1\b)"},
    {"lambda", R"((^|[=(,] |\breturn )\[ [^\[\]]*\])"},
    {"trailing return type", R"(\) (const )?->)"},
    {"decltype, typeof", R"(\b(decltype|(__)?typeof(__)?)\b)"},
    {"statement expression", R"(\( \{)"},
    {"initialized pointer to function", R"(\( \* \w+ (\[ \w* \] )?\) \( .* =)"},
    {"name behind ::template", R"(::\s?template\b|\btemplate \w+ <.*> \()"},
    {"variadic template", R"(\. \. \.)"},
    {"range-based for", R"(\bfor \( [^;]* : )"},
    {"user-defined literal", R"(operator "")"},
    {"macro in front of a namespace", R"(\b[A-Z_][A-Z0-9_]* (\( [^()]*\) )?namespace\b)"},
    {"nested namespace name", R"(\bnamespace \w+::)"},
    {"macro behind a namespace name", R"(\bnamespace \w+ [A-Za-z_])"},
    {"macro behind a parameter list",
     R"(^(?!if |for |while |switch |else ).*\) (const )?[A-Za-z_]\w* (\( .*\) )?[;{]$)"},
    {"macro call without semicolon",
     R"((^|: )(?!if |for |while |switch |return |else )[A-Za-z_]\w* \( .*\) ([A-Za-z_~]|\}))"},
    {"macro name without semicolon", R"((^|: )[A-Z][A-Z0-9_]*_[A-Z0-9_]*($| [A-Za-z_~}]))"},
    {"macro with arguments in a declaration", R"(\b_*[A-Z][A-Z0-9_]{2,} \()"},
    {"braced initializer", R"(^(?!.*\b(class|struct|union|enum|namespace|extern|else|do|try)\b).*[\w>] \{$)"},
    {"designated initializer", R"([,{] (\. \w+|\[ .*\]) =)"},
    {"default of an unnamed template parameter", R"(\b(typename|class) =)"},
    {"macro in a declaration", R"(\b_*[A-Z][A-Z0-9]*_[A-Z0-9_]+ )"},
    {"attribute-like word", R"(\b__\w+)"},
    {"constexpr", R"(\bconstexpr\b)"},
};
constexpr const char* unbalanced = "branches of #if with a brace each";
constexpr const char* notRecognised = "not recognised";

// A statement that is longer is cut: only the part near the message counts.
constexpr std::size_t longestStatement = 60;

const char* constructIn(const std::string& statement) {
    static const auto patterns = [] {
        std::vector<std::pair<const char*, std::regex>> compiled;
        for (const Construct& construct : constructs) compiled.emplace_back(construct.name, construct.pattern);
        return compiled;
    }();
    for (const auto& [name, pattern] : patterns) {
        if (std::regex_search(statement, pattern)) return name;
    }
    return nullptr;
}

bool isBorder(const Trn::Token& token) {
    return token.kind() == Trn::Kind::Semicolon || token.kind() == Trn::Kind::OpenBrace ||
           token.kind() == Trn::Kind::CloseBrace;
}

using Tokens = std::vector<Trn::Token>;

// From behind the last border in front of `at` to the first border at it or behind it.
std::string statementRound(const Tokens& tokens, std::size_t at) {
    std::size_t begin = at;
    while (begin > 0 && at - begin < longestStatement && !isBorder(tokens[begin - 1])) --begin;
    std::size_t end = at;
    while (end < tokens.size() && end - at < longestStatement && !isBorder(tokens[end])) ++end;
    std::string statement;
    for (std::size_t i = begin; i < tokens.size() && i <= end; ++i) {
        if (!statement.empty()) statement += ' ';
        statement += tokens[i].kind() == Trn::Kind::StringLiteral ? "\"\"" : tokens[i].text().substr(0, 60);
    }
    return statement;
}

const char* constructRound(const Tokens& tokens, std::size_t at) {
    if (const char* found = constructIn(statementRound(tokens, at))) return found;
    std::size_t before = at;
    while (before > 0 && at - before < longestStatement && !isBorder(tokens[before - 1])) --before;
    while (before > 0 && isBorder(tokens[before - 1])) --before;
    return constructIn(statementRound(tokens, before));
}

bool isBalanced(const Tokens& tokens) {
    const auto countOf = [&tokens](Trn::TokenKind kind) {
        return std::count_if(tokens.begin(), tokens.end(), [kind](const auto& token) { return token.kind() == kind; });
    };
    return countOf(Trn::Kind::OpenBrace) == countOf(Trn::Kind::CloseBrace);
}

}  // namespace

std::string messagePattern(std::string_view message) {
    std::string pattern;
    for (std::size_t at = 0; at < message.size(); ++at) {
        if (std::isdigit(static_cast<unsigned char>(message[at])) != 0) {
            if (!pattern.ends_with('N')) pattern += 'N';
            continue;
        }
        pattern += message[at];
        const std::size_t close = message[at] == '"' ? message.find('"', at + 1) : std::string_view::npos;
        if (close == std::string_view::npos) continue;
        pattern += close - at == 2 ? message.substr(at + 1, 2) : "..\"";
        at = close;
    }
    for (const std::string_view quoting : {"Got:", "Found:", "Token:"}) {
        if (const std::size_t at = pattern.find(quoting); at != std::string::npos) pattern.resize(at + quoting.size());
    }
    return pattern;
}

std::string refusalCause(std::string_view text, const Trn::ParseMessage& message) {
    Cpp::Lexer lexer(text);
    Tokens tokens;
    std::size_t at = 0;
    for (Trn::Token token = lexer.next(); token.kind() != Trn::Kind::EndOfInput; token = lexer.next()) {
        if (Trn::isTrivia(token.kind())) continue;
        if (token.first() < message.position) at = tokens.size() + 1;
        tokens.push_back(token);
    }
    const char* construct = constructRound(tokens, std::min(at, tokens.size()));
    if (!construct) construct = isBalanced(tokens) ? notRecognised : unbalanced;
    return std::string(construct) + " | " + messagePattern(message.text);
}

}  // namespace Soak
