// The walk of the expression formatter: which rule takes a token, and the rules for operators.
#include "first/expr/Brevis_CppExprFormatter.h"

#include <algorithm>
#include <array>
#include <optional>

#include "Trn_Exception.h"
#include "Trn_NestingGuard.h"

namespace Brevis {

namespace Kind = Trn::Kind;

// ---- Construction

namespace {

// The values that act in expressions. What goes between call arguments is looked up on its own.
constexpr WsProperty Scheme::*exprValues[] = {
    &Scheme::wsBetweenExprOpOperands, &Scheme::wsAfterFnCallName,       &Scheme::wsAfterExprOpenParen,
    &Scheme::wsBeforeExprCloseParen,  &Scheme::wsBeforeFnCallComma,     &Scheme::wsAfterLbracket,
    &Scheme::wsBeforeRbracket,        &Scheme::wsAfterTpOpenBracket,    &Scheme::wsBeforeTpCloseBracket,
    &Scheme::wsBetweenTpParams,       &Scheme::wsBetweenAsteriskAnchor, &Scheme::wsBetweenAmpersandAnchor,
    &Scheme::wsBeforeDdOpenBrace,     &Scheme::wsAfterDdOpenBrace,      &Scheme::wsBeforeDdCloseBrace,
    &Scheme::wsBeforeDdComma,         &Scheme::wsBetweenDdElements,     &Scheme::indentDdContent,
};

bool anyValueBreaks(const Scheme& scheme) {
    const auto breaks = [&scheme](WsProperty Scheme::*value) { return (scheme.*value).holdsLineFeed(); };
    return scheme.betweenFnCallArgs().holdsLineFeed() ||
           std::any_of(std::begin(exprValues), std::end(exprValues), breaks);
}

}  // namespace

CppExprFormatter::CppExprFormatter(const Scheme& scheme, LeafDialect dialect)
    : CppExprFormatterBase(scheme, dialect),
      anyValueBreaks_(anyValueBreaks(scheme)),
      parens_{scheme.wsAfterExprOpenParen, scheme.wsBeforeExprCloseParen, scheme.wsBeforeFnCallComma,
              scheme.betweenFnCallArgs()},
      squares_{scheme.wsAfterLbracket, scheme.wsBeforeRbracket, noWs, noWs},
      castAngles_{scheme.wsAfterTpOpenBracket, scheme.wsBeforeTpCloseBracket, parens_.comma, parens_.between} {}

CppExprFormatter::~CppExprFormatter() = default;

// ---- The walk

namespace {

// The characters of tokens that some rule takes up: brackets, operators, quotes, comment and directive signs. A text
// without any of them is only copied.
constexpr std::array<bool, 256> makeRuledCharacters() {
    std::array<bool, 256> ruled{};
    for (const char c : std::string_view("\"'#/:=*&+-~%<>!^|?([")) ruled[static_cast<unsigned char>(c)] = true;
    return ruled;
}

constexpr std::array<bool, 256> ruledCharacters = makeRuledCharacters();

bool isOnlyCopied(std::string_view text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return ruledCharacters[static_cast<unsigned char>(c)]; });
}

// An indent with a line feed makes lines of its own, which are indented again a level higher up, so that each level of
// brackets that don't close, template arguments or comparisons doubles the text. Other indents add up.
void checkGrowth(std::string_view result, const ExprSlice& slice, std::string_view indent) {
    constexpr std::size_t mostTimes = 64;
    constexpr std::size_t room = std::size_t{1} << 20;
    if (result.size() <= room || result.size() <= mostTimes * slice.text().size()) return;
    if (indent.find('\n') == std::string_view::npos) return;
    throw Trn::Exception("The text is too long once its expressions are indented.");
}

// Its values are those that break lines in most schemes.
bool isBracedInitializer(const ExprSlice& slice) {
    const std::uint32_t first = slice.firstToken;
    return first + 1 < slice.endToken && (*slice.tokens)[first].kind == Kind::Assign &&
           (*slice.tokens)[first + 1].kind == Kind::OpenBrace;
}

}  // namespace

std::string CppExprFormatter::format(std::string_view text, const IndentStreamSettings& settings) {
    if (isOnlyCopied(text)) return writeOrdinary(text, settings);

    struct Lease {
        Lease(ExprTokens& tokens, std::size_t& inUse) : tokens_(tokens), inUse_(++inUse) {}
        ~Lease() {
            tokens_.release();
            --inUse_;
        }
        ExprTokens& tokens_;
        std::size_t& inUse_;
    };
    if (buffersInUse_ == tokenBuffers_.size()) tokenBuffers_.push_back(std::make_unique<ExprTokens>());
    ExprTokens& tokens = *tokenBuffers_[buffersInUse_];
    const Lease lease(tokens, buffersInUse_);
    tokens.lex(text, dialect());
    return formatSlice({&tokens, 0, tokens.count(), 0, static_cast<std::uint32_t>(text.size())}, settings);
}

std::string CppExprFormatter::formatType(std::string_view text, const IndentStreamSettings& settings,
                                         const WsProperty& wsAfterType) {
    const TypeMode typeMode(*this, wsAfterType);
    return format(text, settings);
}

std::string CppExprFormatter::formatSlice(const ExprSlice& slice, const IndentStreamSettings& settings,
                                          bool isRewritten) {
    if (formatPlain(slice, settings)) return plain_.takeText();
    OIndentStream out(settings);
    walkThrough(ExprWalk(slice, out, isRewritten));
    std::string result = out.takeStr();
    checkGrowth(result, slice, settings.indent);
    return result;
}

bool CppExprFormatter::formatPlain(const ExprSlice& slice, const IndentStreamSettings& settings) {
    if (!slice.isPlain() || isBracedInitializer(slice)) return false;
    plain_.start(slice, settings);
    if (plain_.hasFailed()) return false;
    comparisons_ = 0;
    walkThrough(ExprWalk(slice, plain_));
    // What one part of a text can't do, the others can't either.
    if (plain_.hasFailed()) slice.tokens->setNotPlain();
    return !plain_.hasFailed();
}

void CppExprFormatter::walkThrough(ExprWalk walk) {
    const Trn::NestingGuard nesting(depth_);
    while (walk.more() && !walk.hasFailed()) {
        walk.advance();
        formatToken(walk);
    }
    walk.write(walk.remainder());
}

void CppExprFormatter::formatToken(ExprWalk& walk) {
    const Trn::TokenKind next = walk.nextKind();
    switch (walk.currentKind()) {
        case Kind::EndOfInput:
            return;
        case Kind::Directive:
            return writeDirectiveToken(walk, walk.current());
        case Kind::LineComment:
        case Kind::BlockComment:
            return walk.copyThrough(walk.current());
        case Kind::StringLiteral:
            if (next == Kind::StringLiteral) return joinStrings(walk);
            break;
        case Kind::Semicolon:
        case Kind::Colon:
        case Kind::Question:
            if (isSign(next)) return spaceUnarySign(walk);
            break;
        case Kind::Comma:
            if (!isSign(next) && isBinaryOp(next)) return spaceUnarySign(walk);
            break;
        case Kind::OpenParen:
            formatBracket(walk, parens_);
            return afterParen(walk);
        case Kind::Assign:
            return formatInitializer(walk);
        case Kind::Star:
        case Kind::Amp:
        case Kind::Minus:
        case Kind::Not:
            return walk.copyPair();  // without an operand in front they are unary
        case Kind::OpenBracket:
            return formatBracket(walk, squares_);
        case Kind::Less:
            return formatAngle(walk);
        case Kind::StaticCast:
        case Kind::DynamicCast:
        case Kind::ConstCast:
        case Kind::ReinterpretCast:
            return formatCast(walk);
        case Kind::Throw:
        case Kind::Sizeof:
            if (next == Kind::OpenParen) return formatCall(walk);
            break;
        case Kind::Identifier:
            if (next == Kind::OpenParen) return formatCall(walk);
            if (next == Kind::Less) return formatAngle(walk);
            break;
        default:
            break;
    }
    defaultRule(walk);
}

namespace {

// True for a token that a pointer or reference sign can stand behind in a type or declaration.
bool canEndType(Trn::TokenKind kind) {
    return isBuiltinType(kind) || isBinaryOp(kind) || kind == Kind::Identifier || kind == Kind::Comma ||
           kind == Kind::Semicolon || kind == Kind::Greater;
}

}  // namespace

// A binary operator is taken care of by the token in front of it, and the walk goes on behind the operator.
void CppExprFormatter::defaultRule(ExprWalk& walk) {
    skipTrivia(walk);
    const Trn::TokenKind current = walk.currentKind();
    const Trn::TokenKind next = walk.nextKind();
    if (typeMode_ && isSign(next) && canEndType(current)) return pointerRun(walk);
    const bool nextIsUnary = typeMode_ && isSign(next) && current == Kind::OpenParen;
    if (nextIsUnary || current == Kind::Throw || current == Kind::Return) return walk.copyPair();

    if (isBinaryOp(next) || (isBinaryOp(current) && current != Kind::Greater)) {
        if (isBinaryOp(next)) {
            spaceBeforeOp(walk, walk.current(), walk.next());
            skipTrivia(walk);
            walk.advance();
        }
        if (walk.more())
            spaceAfterOp(walk, walk.current(), walk.next());
        else
            walk.write(walk.remainder());
        return;
    }

    if (walk.more())
        walk.copyBefore(walk.next());
    else
        walk.write(walk.remainder());
}

// ---- Steps

void CppExprFormatter::skipTrivia(ExprWalk& walk) {
    while (walk.more() && Trn::isTrivia(walk.nextKind())) {
        if (walk.nextKind() == Kind::Directive)
            writeDirectiveToken(walk, walk.next());
        else
            walk.copyThrough(walk.next());
        walk.advance();
    }
}

void CppExprFormatter::spaceBeforeOp(ExprWalk& walk, const ExprToken& before, const ExprToken& op) {
    if (!isBinaryOp(op.kind) || !scheme().wsBetweenExprOpOperands.isSet) return walk.copyBefore(op);
    walk.copyThrough(before);
    walk.writeTrimmed(walk.readBefore(op), scheme().wsBetweenExprOpOperands);
}

void CppExprFormatter::spaceAfterOp(ExprWalk& walk, const ExprToken& op, const ExprToken& after) {
    if (!isBinaryOp(op.kind) || !scheme().wsBetweenExprOpOperands.isSet) return walk.copyBefore(after);
    walk.writeTrimmed(walk.trimmedLeft(walk.readThrough(op)), scheme().wsBetweenExprOpOperands);
    if (Trn::isTrivia(after.kind))
        walk.copyBefore(after);
    else
        walk.writeTrimmedLeft(walk.readBefore(after));
}

// The sign in front of an operand that follows a separator stays with the operand.
void CppExprFormatter::spaceUnarySign(ExprWalk& walk) {
    spaceBeforeOp(walk, walk.current(), walk.next());
    walk.advance();
    walk.copyPair();
}

// With wrapping on, a literal continued on the next line comes back to this line; the wrapper breaks it again.
void CppExprFormatter::joinStrings(ExprWalk& walk) {
    if (!scheme().lineWrap) return walk.copyBefore(walk.next());
    walk.copyThrough(walk.current());
    walk.writeMoved(" ");
    walk.writeTrimmedLeft(walk.readBefore(walk.next()));
}

void CppExprFormatter::writeDirectiveToken(ExprWalk& walk, const ExprToken& token) {
    OIndentStream& out = walk.out();
    if (!scheme().alignPpdLeftMost) return writeRaw(out, walk.readThrough(token));

    std::optional<LeadingWsGuard> keep;
    std::optional<IndentStringGuard> indent;
    if (*scheme().alignPpdLeftMost) {
        keep.emplace(out, false);
        if (scheme().leftMargin.isSet) indent.emplace(out, scheme().leftMargin.text);
    }
    walk.write(walk.readBefore(token));
    const int column = walk.columnOf(token.begin);
    const std::string_view text = walk.readThrough(token);
    if (text.empty()) return;

    ITextDocStream in(text, out.tabSize(), {1, column});
    ITextDocStream end = in;
    end.readRest();
    writeMultiLine({1, column + 1}, end.position(), in, out);
}

}  // namespace Brevis
