// The loop over the items of a file, a namespace, a linkage block and a class. A table for each of them tells what a
// token begins there.
#include <array>
#include <cstdint>
#include <initializer_list>

#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::TokenKind;

namespace {

// What to do with an item that begins with a token of a certain kind.
enum class Action : std::uint8_t {
    Declaration,
    Stop,
    ReportEnd,
    Drop,
    Block,
    OpenBrace,
    CloseBrace,
    Trivia,
    SkipUsing,
    Using,
    Namespace,
    NamespaceOrAlias,
    Template,
    Extern,
    AccessLabel,
    WordOrLabel,
    Refuse,
    Control,
    Jump,
    Asm,
    FileWord,
};

struct Rule {
    TokenKind first;
    TokenKind last;
    Action action;
};

// The action for each kind of token.
class ActionTable {
public:
    // A later rule goes before an earlier one. A kind without a rule begins a declaration.
    constexpr ActionTable(std::initializer_list<Rule> rules) { add(rules); }
    constexpr void add(std::initializer_list<Rule> rules) {
        for (const Rule& rule : rules) {
            for (TokenKind kind = rule.first; kind <= rule.last; ++kind) actions_[index(kind)] = rule.action;
        }
    }
    constexpr Action operator[](TokenKind kind) const { return actions_[index(kind)]; }

private:
    static constexpr std::size_t index(TokenKind kind) { return static_cast<std::size_t>(kind - Kind::EndOfInput); }

    std::array<Action, 121> actions_{};
};

constexpr Rule on(TokenKind kind, Action action) { return {kind, kind, action}; }

// What differs between the bodies.
struct BodyRules {
    ActionTable actions;
    bool isFile = false;
    bool isClass = false;
};

constexpr ActionTable betweenBraces(std::initializer_list<Rule> rules) {
    ActionTable table{on(Kind::EndOfInput, Action::ReportEnd),  on(Kind::Defective, Action::ReportEnd),
                      on(Kind::Semicolon, Action::Drop),        on(Kind::OpenBrace, Action::OpenBrace),
                      on(Kind::CloseBrace, Action::CloseBrace), on(Kind::Using, Action::Using),
                      on(Kind::Extern, Action::Extern)};
    table.add(rules);
    return table;
}

constexpr BodyRules fileRules{ActionTable{
                                  on(Kind::EndOfInput, Action::Stop),
                                  on(Kind::Defective, Action::Drop),
                                  on(Kind::Semicolon, Action::Drop),
                                  on(Kind::CloseBrace, Action::Drop),
                                  on(Kind::OpenBrace, Action::Block),
                                  on(Kind::Namespace, Action::Namespace),
                                  on(Kind::Using, Action::SkipUsing),
                                  on(Kind::Template, Action::Template),
                                  on(Kind::Extern, Action::Extern),
                                  on(Kind::Throw, Action::Jump),
                                  {Kind::Continue, Kind::Return, Action::Jump},
                                  on(Kind::Asm, Action::Asm),
                                  on(Kind::Identifier, Action::FileWord),
                                  {Kind::If, Kind::Switch, Action::Control},
                                  on(Kind::Directive, Action::Trivia),
                                  {Kind::LineComment, Kind::BlockComment, Action::Trivia},
                              },
                              true, false};

constexpr BodyRules namespaceRules{betweenBraces({
    on(Kind::Namespace, Action::NamespaceOrAlias),
    on(Kind::Template, Action::Template),
})};

constexpr BodyRules linkageRules{betweenBraces({
    on(Kind::Namespace, Action::Namespace),
    on(Kind::Template, Action::Refuse),
    {Kind::Public, Kind::Protected, Action::Refuse},
    {Kind::If, Kind::Default, Action::Refuse},
})};

constexpr BodyRules classRules{betweenBraces({
                                   on(Kind::Namespace, Action::Refuse),
                                   on(Kind::Template, Action::Template),
                                   {Kind::Public, Kind::Protected, Action::AccessLabel},
                                   on(Kind::Identifier, Action::WordOrLabel),
                               }),
                               false, true};

// Why a token that is refused has no place in its body.
std::string_view refusalOf(TokenKind kind) {
    if (kind == Kind::Namespace) return "Namespace declaration illegal inside class declaration.";
    if (kind == Kind::Template) return "templates cannot be declared to have 'C' linkage.";
    if (isAccessKeyword(kind)) return "public: protected: private: labels are illegal inside linkage blocks.";
    return "control statements (e.g. if, else, while) are illegal inside linkage blocks.";
}

}  // namespace

struct Parser::ItemLoop {
    const BodyRules& rules;
    InteriorNode& body;
    int depth = 1;  // of the braces that are passed over
};

void Parser::parseFileItems(Stream& stream, RootNode& root) { parseItems(stream, {fileRules, root}); }
bool Parser::parseNamespaceItems(Stream& stream, NamespaceBodyNode& body) {
    return parseItems(stream, {namespaceRules, body});
}
bool Parser::parseLinkageItems(Stream& stream, LinkageBlockBodyNode& body) {
    return parseItems(stream, {linkageRules, body});
}
bool Parser::parseClassItems(Stream& stream, ClassBodyNode& body) { return parseItems(stream, {classRules, body}); }

bool Parser::parseItems(Stream& stream, ItemLoop loop) {
    return repeat(stream, [&] { return parseItem(stream, loop); }) != Step::Fail;
}

// In a file a comment is an item of its own.
Parser::Step Parser::parseItem(Stream& stream, ItemLoop& loop) {
    if (!loop.rules.isFile) attachTrivia(stream, loop.body);
    const TokenKind kind = stream.peek().kind();
    switch (loop.rules.actions[kind]) {
        case Action::Stop:
            return Step::Stop;
        case Action::ReportEnd:
            stream.get();
            reportUnexpectedEnd(stream);
            return Step::Stop;
        case Action::Drop:
            stream.get();
            return Step::GoOn;
        case Action::OpenBrace:
            stream.get();
            ++loop.depth;
            return Step::GoOn;
        case Action::CloseBrace:
            return closeItemBrace(stream, loop);
        case Action::Refuse:
            report(stream.get().first(), std::string(refusalOf(kind)));
            return Step::GoOn;
        case Action::Declaration:
            return parseItemDeclaration(stream, loop);
        case Action::WordOrLabel:
            if (stream.peek(2).kind() != Kind::Colon) return parseItemDeclaration(stream, loop);
            [[fallthrough]];
        default:
            parseItemNode(stream, loop);
            return Step::GoOn;
    }
}

Parser::Step Parser::closeItemBrace(Stream& stream, ItemLoop& loop) {
    const Token brace = stream.get();
    if (--loop.depth > 0) return Step::GoOn;
    loop.body.setLastPosition(brace.last());
    return Step::Stop;
}

// A bad declaration ends the body, but not the file.
Parser::Step Parser::parseItemDeclaration(Stream& stream, ItemLoop& loop) {
    const bool isGood = addDeclaration(stream, loop.body, loop.rules.isClass);
    return isGood || loop.rules.isFile ? Step::GoOn : Step::Fail;
}

void Parser::parseItemNode(Stream& stream, ItemLoop& loop) {
    InteriorNode& body = loop.body;
    switch (loop.rules.actions[stream.peek().kind()]) {
        case Action::Trivia:
            return body.addChild(parseTrivia(stream));
        case Action::Block:
            return body.addChild(parseBlock(stream));
        case Action::Namespace:
            return body.addChild(parseNamespaceDecl(stream));
        case Action::NamespaceOrAlias:
            return parseNamespaceOrAlias(stream, body);
        case Action::Template:
            return body.addChild(parseTemplate(stream));
        case Action::Extern:
            return body.addChild(parseExtern(stream));
        case Action::AccessLabel:
        case Action::WordOrLabel:
            return body.addChild(parseAccessLabel(stream));
        case Action::Control:
            return body.addChild(parseControlStatement(stream));
        case Action::SkipUsing:
            return skipUntil(stream, Kind::Semicolon);
        case Action::Using:
            stream.get();
            return skipUntilAttaching(stream, body, Kind::Semicolon);
        case Action::Jump:
            return parseFileStatement(stream, body);
        case Action::Asm:
            return parseFileAsm(stream, body);
        case Action::FileWord:
            return parseFileWord(stream, body);
        default:
            return;
    }
}

// ---- Items that only some bodies hold

// Inside a namespace, the rest of an alias passes as the data declaration that it looks like.
void Parser::parseNamespaceOrAlias(Stream& stream, InteriorNode& body) {
    const Token keyword = stream.get();
    attachTrivia(stream, body);
    if (startsNamespaceAlias(stream)) return;
    stream.unget(keyword);
    body.addChild(parseNamespaceDecl(stream));
}
// A word in front of a `{` is taken for a macro that opens a block.
void Parser::parseFileWord(Stream& stream, InteriorNode& body) {
    if (isAsmWord(stream.peek().text())) return parseFileAsm(stream, body);
    const Token word = stream.get();
    if (peekSignificant(stream).kind() == Kind::OpenBrace) {
        body.addChild(make<ExprNode>(word.text(), word.first(), word.last()));
        body.addChild(parseBlock(stream));
        return;
    }
    stream.stepBack();
    addDeclaration(stream, body, false);
}

void Parser::parseFileAsm(Stream& stream, InteriorNode& body) {
    auto statement = parseAsm(stream);
    if (!statement) stream.get();
    body.addChild(std::move(statement));
}

void Parser::parseFileStatement(Stream& stream, InteriorNode& body) {
    Tokens list(stream.buffer());
    if (!collectUntil(stream, list, Kind::Semicolon)) return;
    Stream statement(list);
    body.addChild(parseExpressionStatement(statement));
}

}  // namespace Cpp
