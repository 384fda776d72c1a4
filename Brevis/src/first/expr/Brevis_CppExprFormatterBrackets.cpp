// The expression formatter's rules for brackets: parentheses, square brackets, calls, casts, template arguments and
// the comparison that only looks like them, and brace initializers.
//
// Only the inside of parentheses, square brackets and casts is written raw. The other nested results go out as ordinary
// text, so that the indent of their lines is put in front once more.
#include <algorithm>

#include "Trn_NestingGuard.h"
#include "first/expr/Brevis_CppExprFormatter.h"
#include "first/expr/Brevis_ExprTailCut.h"

namespace Brevis {

namespace Kind = Trn::Kind;

// ---- Parentheses, square brackets and the angle brackets of casts

// The close token stays unwritten: it is the next token on return, and the walk takes it up.
void CppExprFormatter::formatBracket(ExprWalk& walk, const BracketValues& values) {
    const std::uint32_t close = walk.current().close;
    if (values.spacesInside())
        formatSpacedBracket(walk, values, close);
    else
        formatUnspacedBracket(walk, values, close);
}

void CppExprFormatter::formatSpacedBracket(ExprWalk& walk, const BracketValues& values, std::uint32_t close) {
    skipTrivia(walk);
    if (walk.more() && walk.nextIndex() == close) return writeEmptyPair(walk, walk.current(), walk.next());

    if (!walk.more()) {
        if (values.afterOpen.isSet) walk.writeTrimmed(walk.readThrough(walk.current()), values.afterOpen);
        return walk.writeTrimmedLeft(walk.remainder());
    }

    if (values.afterOpen.isSet)
        walk.writeTrimmed(walk.readBefore(walk.next()), values.afterOpen);
    else
        walk.copyBefore(walk.next());

    const std::uint32_t first = walk.nextIndex();
    std::string_view gap;
    if (walk.advanceTo(close)) {
        formatInside(walk, values, first, close);
        gap = walk.readBefore(walk.next());
    } else {
        gap = walk.remainder();
    }
    if (!values.beforeClose.isSet) return walk.write(gap);
    walk.writeTrimmedLeft(gap);
    walk.writeWs(values.beforeClose.text);
}

void CppExprFormatter::formatUnspacedBracket(ExprWalk& walk, const BracketValues& values, std::uint32_t close) {
    walk.copyBefore(walk.next());
    const std::uint32_t first = walk.nextIndex();
    if (walk.advanceTo(close)) {
        formatInside(walk, values, first, close);
        walk.copyBefore(walk.next());
        return;
    }
    // A read up to the end of the input leaves the last character to the walk, but no token is torn apart: a comment or
    // directive is read whole, and where the rest of the token doesn't end the result, the text stays as it is.
    if (PlainExprText* plain = walk.plain()) return plain->fail();
    const ExprToken last = walk.current();
    const bool isTrivia = Trn::isTrivia(last.kind);
    const ExprSlice slice = walk.readSlice(first, walk.nextIndex(), isTrivia ? last.end : walk.next().begin);
    const std::string_view text = slice.text();
    const IndentStreamSettings settings = walk.out().settings();
    const std::string result = isTrivia ? formatSlice(slice, settings) : formatCut(slice, settings);
    const std::size_t length = std::min<std::size_t>(text.size(), isTrivia ? 0 : last.end - last.begin - 1);
    walk.write(result.ends_with(text.substr(text.size() - length)) ? result : text);
}

// The slice ends inside its last token.
std::string CppExprFormatter::formatCut(const ExprSlice& slice, const IndentStreamSettings& settings) {
    if (slice.isEmpty()) return format({}, settings);
    const ExprTailCut cut(*slice.tokens, slice);
    return cut.isDone() ? formatSlice(cut.slice(), settings) : format(slice.text(), settings);
}

void CppExprFormatter::formatInside(ExprWalk& walk, const BracketValues& values, std::uint32_t first,
                                    std::uint32_t close) {
    const ExprSlice slice = walk.readSlice(first, close, walk.current().end);
    if (slice.isEmpty()) return;
    writeNested(walk, slice, {{values.comma, values.between, true}, noWs, values.beforeClose.isSet, true});
}

// ---- Nested results

void CppExprFormatter::writeNested(ExprWalk& walk, const ExprSlice& slice, const NestedStyle& style) {
    if (PlainExprText* plain = walk.plain()) return writePlain(*plain, slice, style);
    const IndentStreamSettings settings = walk.out().settings();
    std::string text = formatSlice(slice, settings);
    const auto& [before, after, linesUp] = style.commas;
    if (style.commas.areSet()) {
        text = linesUp ? formatSeparated(text, Kind::Comma, before, after, settings)
                       : formatAround(text, Kind::Comma, before, after, settings);
    }
    if (style.atStart.isSet) {
        trimLeft(text);
        walk.writeWs(style.atStart.text);
    }
    if (style.trimsEnd) trimGapTrailing(text);
    if (style.isRaw)
        writeRaw(walk.out(), text);
    else
        walk.write(text);
}

void CppExprFormatter::writePlain(PlainExprText& plain, const ExprSlice& slice, const NestedStyle& style) {
    notePlainDepth(plain);
    const PlainExprText::Nested nested(plain, slice, style);
    walkThrough(ExprWalk(slice, plain));
}

// Each comparison could stand for one more level over a stream, which decides whether the text is too deep.
void CppExprFormatter::notePlainDepth(PlainExprText& plain) const {
    if (comparisons_ > 0 && depth_ + comparisons_ >= Trn::NestingGuard::limit) plain.fail();
}

// ---- Parentheses in their places

void CppExprFormatter::writeEmptyPair(ExprWalk& walk, const ExprToken& open, const ExprToken& close) {
    walk.write(walk.trimmedRight(walk.readThrough(open)));
    walk.writeTrimmedLeft(walk.readBefore(close));
}

// Behind parentheses that are no call's an operand makes them a C-style cast.
void CppExprFormatter::afterParen(ExprWalk& walk) {
    skipTrivia(walk);
    const bool lastIsSign = isSign(walk.currentKind());
    walk.advance();
    if (!walk.more()) return;

    switch (walk.nextKind()) {
        case Kind::CharLiteral:
        case Kind::Number:
        case Kind::StringLiteral:
        case Kind::OpenParen:
        case Kind::Identifier:
            if (scheme().wsBetweenExprOpOperands.isSet)
                walk.writeTrimmed(walk.readBefore(walk.next()), scheme().wsBetweenExprOpOperands);
            break;
        case Kind::Star:
        case Kind::Amp:
            if (!lastIsSign) break;
            if (scheme().wsBetweenExprOpOperands.isSet)
                walk.writeTrimmed(walk.readBefore(walk.next()), scheme().wsBetweenExprOpOperands);
            else
                walk.copyBefore(walk.next());
            return walk.copyPair();  // the sign comes up as the current token, which makes it unary
        default:
            break;
    }
    formatToken(walk);
}

void CppExprFormatter::formatCall(ExprWalk& walk) {
    if (scheme().wsAfterFnCallName.isSet) {
        walk.copyThrough(walk.current());
        walk.writeTrimmed(walk.readBefore(walk.next()), scheme().wsAfterFnCallName);
    } else {
        walk.copyBefore(walk.next());
    }
    walk.advance();
    if (walk.more()) formatBracket(walk, parens_);
}

void CppExprFormatter::formatCast(ExprWalk& walk) {
    skipTrivia(walk);
    walk.advance();
    if (!walk.more() || walk.currentKind() != Kind::Less) return;
    {
        const TypeMode typeMode(*this, noWs);
        formatBracket(walk, castAngles_);
    }
    if (!scheme().wsBetweenExprOpOperands.isSet) return;
    walk.advance();
    if (walk.more() && walk.nextKind() == Kind::OpenParen) {
        walk.writeTrimmed(walk.readBefore(walk.next()), scheme().wsBetweenExprOpOperands);
        formatToken(walk);
    }
}

// ---- Brace initializers

// An `=` without an operand in front: the text is an initializer.
void CppExprFormatter::formatInitializer(ExprWalk& walk) {
    skipTrivia(walk);
    if (walk.nextKind() != Kind::OpenBrace) return defaultRule(walk);
    if (PlainExprText* plain = walk.plain()) return plain->fail();
    const ExprToken& eq = walk.current();
    const ExprToken& brace = walk.next();
    if (scheme().wsBeforeDdOpenBrace.isSet) {
        walk.copyThrough(eq);
        walk.write(walk.trimmedRight(walk.readBefore(brace)));
        if (!Trn::isLineToken(eq.kind)) walk.writeWs(scheme().wsBeforeDdOpenBrace.text);
    }
    walk.copyThrough(brace);
    walk.advance();
    const std::uint32_t first = walk.nextIndex();
    if (!walk.advanceTo(brace.close)) return writeNested(walk, walk.remainingSlice(first), {});

    const ExprToken& close = walk.next();
    if (brace.close == first) {
        writeEmptyPair(walk, brace, close);
    } else {
        formatInitializerElements(walk, walk.readSlice(first, brace.close, walk.current().end));
        if (scheme().wsBeforeDdCloseBrace.isSet) {
            walk.writeTrimmedLeft(walk.readBefore(close));
            walk.writeWs(scheme().wsBeforeDdCloseBrace.text);
        }
    }
    walk.copyThrough(close);
}

void CppExprFormatter::formatInitializerElements(ExprWalk& walk, const ExprSlice& elements) {
    ExprSlice slice = elements;
    if (scheme().wsAfterDdOpenBrace.isSet) {
        slice.begin = slice.end - static_cast<std::uint32_t>(trimmedLeft(slice.text()).size());
        walk.writeWs(scheme().wsAfterDdOpenBrace.text);
    }
    OIndentStream& out = walk.out();
    const LeadingWsGuard keep(out, out.keepLeadingWs() && !scheme().indentDdContent.isSet);
    const IndentStringGuard indent(out, out.indent() + scheme().indentDdContent.text);
    writeNested(walk, slice, {{scheme().wsBeforeDdComma, scheme().wsBetweenDdElements}});
}

// ---- `<`

// The current token is the `<` or an identifier with the `<` next.
void CppExprFormatter::formatAngle(ExprWalk& walk) {
    const bool isNamed = walk.currentKind() != Kind::Less;
    if (!isNamed && !walk.more()) return walk.copyThrough(walk.current());
    const std::uint32_t open = isNamed ? walk.nextIndex() : walk.currentIndex();
    // Without a name the search has passed the token behind the `<` when it begins to look.
    const std::uint32_t firstInner = isNamed ? open + 1 : open + 2;
    const std::uint32_t close = walk.tokens().angleClose(firstInner);
    if (walk.holds(close))
        formatArguments(walk, open, close);
    else
        formatComparison(walk, open, firstInner);
}

void CppExprFormatter::formatComparison(ExprWalk& walk, std::uint32_t open, std::uint32_t firstInner) {
    const bool isNamed = walk.currentIndex() != open;
    if (isNamed) spaceBeforeOp(walk, walk.current(), walk.token(open));
    if (walk.holds(firstInner)) spaceAfterOp(walk, walk.token(open), walk.token(firstInner));
    if (walk.hasConsumed()) return formatRest(walk, walk.holds(firstInner) ? firstInner : open);
    walk.advanceTo(ExprTokens::none);
    walk.write(walk.remainder());
}

// The rest of the text is a text of its own, whose result is written as ordinary text. Where writing it so changes
// nothing, the walk just goes on: a text may hold any number of comparisons.
void CppExprFormatter::formatRest(ExprWalk& walk, std::uint32_t firstToken) {
    if (PlainExprText* plain = walk.plain()) {
        ++comparisons_;
        notePlainDepth(*plain);
        plain->noteRewriting();
        return walk.restartAt(firstToken);
    }
    if (rewritingChangesNothing(walk)) return walk.restartAt(firstToken);
    const IndentStreamSettings settings = walk.out().settings();
    const ExprSlice rest = walk.remainingSlice(firstToken);
    walk.advanceTo(ExprTokens::none);
    walk.write(formatSlice(rest, settings, true));
}

bool CppExprFormatter::rewritingChangesNothing(ExprWalk& walk) const {
    OIndentStream& out = walk.out();
    if (!out.convertsAfresh()) return false;
    const std::string& indent = out.indent();
    if (out.keepLeadingWs() && indent.empty()) return true;
    // Without the keep flag the first rewriting drops leading white space, and those behind it find nothing to drop.
    const bool isDropped = !out.keepLeadingWs() && walk.isRewritten();
    if (isDropped && indent.find_first_not_of(" \t") == std::string::npos) return true;
    return out.column() > 0 && !anyValueBreaks_ && !wsAfterType_->holdsLineFeed() && walk.restIsOneLine();
}

void CppExprFormatter::formatArguments(ExprWalk& walk, std::uint32_t open, std::uint32_t close) {
    walk.advanceTo(close);
    const ExprToken& last = walk.current();
    const ExprToken& closeToken = walk.next();
    if (walk.currentIndex() == open) {
        writeEmptyPair(walk, last, closeToken);
        return walk.copyThrough(closeToken);
    }

    walk.copyThrough(walk.token(open));
    const ExprSlice slice = walk.readSlice(open + 1, close, last.end);
    const NestedStyle style{{noWs, scheme().wsBetweenTpParams}, scheme().wsAfterTpOpenBracket};
    if (scheme().wsBetweenTpParams.isSet) {
        const TypeMode typeMode(*this, noWs);
        writeNested(walk, slice, style);
    } else {
        writeNested(walk, slice, style);
    }

    if (scheme().wsBeforeTpCloseBracket.isSet) {
        walk.writeTrimmedLeft(walk.readBefore(closeToken));
        // Two closing brackets never touch.
        const bool wouldTouch = last.kind == Kind::Greater && scheme().wsBeforeTpCloseBracket.text.empty();
        walk.writeWs(wouldTouch ? " " : std::string_view(scheme().wsBeforeTpCloseBracket.text));
    }
    walk.copyThrough(closeToken);
}

}  // namespace Brevis
