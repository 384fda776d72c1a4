// The visit of the main formatter for data declarations: type, name, array brackets, initializer, each of which may
// be missing. Alignment columns come from the offset calculators.
#include <algorithm>

#include "first/format/Brevis_CppFormatter.h"
#include "first/text/Brevis_OffsetFinder.h"
#include "first/text/Brevis_TokenReader.h"

namespace Brevis {

namespace {

// The offset of the first token of the kind in the text, or npos.
std::size_t findToken(std::string_view text, Trn::TokenKind kind, LeafDialect dialect) {
    TokenReader reader(text, dialect);
    OffsetFinder offsetOf(text);
    for (reader.advance(); reader.current().kind() != Trn::Kind::EndOfInput; reader.advance()) {
        if (reader.current().kind() == kind) return offsetOf(reader.current().first()) - 1;
        if (!reader.more()) break;
    }
    return std::string_view::npos;
}

bool startsWithParen(std::string_view text) { return trimmedLeft(text).starts_with('('); }

}  // namespace

void CppFormatter::visit(Cpp::DataDeclNode& node) {
    applyPending(node);
    int declColumn = 0;
    if (node.name && !classTailPending_ && dataNamesAligned())
        declColumn = writeAlignedDataHead(node);
    else if (node.name || node.initializer)
        declColumn = writePlainDataHead(node);

    if (node.initializer) {
        classTailPending_ = false;
        writeInitializer(node, declColumn);
    }
    // The name, if nothing has written it yet, and the semicolon.
    const std::string_view rest = readThrough(in_, node.lastPosition());
    writeRaw(out_, expr_.formatType(rest, out_.settings(), scheme_.wsAfterDdTypeId));
}

bool CppFormatter::dataNamesAligned() const {
    return scheme_.alignDdNamesLeft || (scheme_.alignClassMemberNamesLeft && inClassBody_);
}

// Both heads give the output column of the declaration's first character.
int CppFormatter::writeAlignedDataHead(Cpp::DataDeclNode& node) {
    int declColumn = 0;
    if (node.type) copyBefore(in_, out_, node.type->firstPosition());
    std::string text = readGap(node.name->firstPosition());
    // A comment keeps this one declaration unaligned.
    const bool aligned = !holdsCommentOrDirective(text);
    if (aligned) {
        replaceCharInGap(text, '\n', ' ');
        trimGapTrailing(text);
    }
    text = expr_.formatType(text, out_.settings(), noWs);
    const SignSplit sign = splitSign(text);
    std::string_view rest = text;
    writeFirstCharacter(rest, true, declColumn);
    out_ << rest;
    if (aligned)
        writeAligned(offsetFor(dataNameColumns_, node), sign);
    else
        out_ << sign.tail;
    return declColumn;
}

int CppFormatter::writePlainDataHead(Cpp::DataDeclNode& node) {
    int declColumn = 0;
    const bool reformat = !scheme_.dataDoNotFormat;
    const Position boundary = node.name ? node.name->firstPosition() : node.initializer->firstPosition();

    if (node.type && reformat) copyBefore(in_, out_, node.type->firstPosition());
    std::string text = readGap(boundary);
    if (node.type && reformat) {
        text = expr_.formatType(text, out_.settings(), scheme_.wsAfterDdTypeId);
        // A type that ends in a sign has had its white space from the expression formatter.
        if (!endsInSign(text) && scheme_.wsAfterDdTypeId.isSet) {
            std::string ws = scheme_.wsAfterDdTypeId.text;
            if (scheme_.alignDdInitializers) std::replace(ws.begin(), ws.end(), '\n', ' ');
            setGapTrailing(text, ws);
        }
    }
    std::string_view rest = text;
    writeFirstCharacter(rest, reformat, declColumn);
    if (reformat)
        writeRaw(out_, rest);
    else
        out_ << rest;

    if (node.initializer && dataNamesAligned()) {
        out_ << Pad{alignPad(offsetFor(dataNameColumns_, node), out_.column(), indentWidth(out_), scheme_.tabSize)};
    }
    return declColumn;
}

void CppFormatter::writeInitializer(Cpp::DataDeclNode& node, int declColumn) {
    const bool isCall = startsWithParen(node.initializer->text);
    if (scheme_.alignDdInitializers)
        writeGapOfAlignedInitializer(node);
    else
        writeGapOfInitializer(node, isCall);

    std::string init(readThrough(in_, node.initializer->lastPosition()));
    trimGapLeading(init);

    std::optional<Layout> layout;
    if (!scheme_.dataDoNotFormat && scheme_.indentDdContent.isSet)
        layout.emplace(out_, true, indentStringFor(out_, declColumn));

    init = isCall ? formatCallInitializer(std::move(init))
                  : expr_.formatType(init, out_.settings(), scheme_.wsAfterDdTypeId);
    if (scheme_.alignDdInitializers) trimGapLeading(init);
    writeRaw(out_, init);
}

void CppFormatter::writeGapOfAlignedInitializer(Cpp::DataDeclNode& node) {
    std::string gap = readGap(node.initializer->firstPosition());
    trimGapTrailing(gap);
    out_ << expr_.formatType(gap, out_.settings(), scheme_.wsAfterDdTypeId);
    out_ << Pad{alignedInitializerPad(node)};
}

int CppFormatter::alignedInitializerPad(Cpp::DataDeclNode& node) const {
    int offset = offsetFor(initializerColumns_, node);
    int column = out_.column();
    const int indent = indentWidth(out_);
    if (dataNamesAligned()) {
        if (node.name)
            offset -= sameLineDistance(node.name->firstPosition(), node.name->lastPosition());
        else
            offset += indent;
    } else {
        if (column > indent) column -= indent;  // counts from the indent
        offset = offset >= column ? offset - column : std::max(offset - column - indent, 0);
    }
    return roundUpToMultiple(column + offset, scheme_.tabSize) - column;
}

void CppFormatter::writeGapOfInitializer(Cpp::DataDeclNode& node, bool isCall) {
    std::string gap = readGap(node.initializer->firstPosition());
    if (isCall) {
        if (scheme_.wsAfterFnCallName.isSet || scheme_.alignFnCallArgsLeft) trimGapTrailing(gap);
    } else if (scheme_.wsBetweenExprOpOperands.isSet) {
        trimGapTrailing(gap);
        gap += scheme_.wsBetweenExprOpOperands.text;
    }
    gap = expr_.formatType(gap, out_.settings(), scheme_.wsAfterDdTypeId);
    applyNameSpacing(gap);
    out_ << gap;
}

void CppFormatter::applyNameSpacing(std::string& text) const {
    if (dataNamesAligned()) return;
    if (scheme_.wsAfterDdName.isSet) {
        const std::size_t bracket = findToken(text, Trn::Kind::OpenBracket, expr_.dialect());
        if (bracket != std::string_view::npos) {
            std::string front = text.substr(0, bracket);
            setGapTrailing(front, scheme_.wsAfterDdName.text);
            text.replace(0, bracket, front);
        } else {
            trimGapTrailing(text);
            text += scheme_.wsAfterDdName.text;
        }
    }
    if (scheme_.wsAfterDdRbracket.isSet) {
        const std::size_t bracket = findToken(text, Trn::Kind::CloseBracket, expr_.dialect());
        if (bracket != std::string_view::npos) {
            std::string behind = text.substr(bracket + 1);
            trimLeft(behind);
            text.replace(bracket + 1, std::string::npos, scheme_.wsAfterDdRbracket.text + behind);
        }
    }
}

// A parenthesis with a name in front of it reads as a call, so a letter goes there for the time of the formatting.
std::string CppFormatter::formatCallInitializer(std::string text) {
    IndentStreamSettings settings = out_.settings();
    settings.column = std::max(settings.column - 1, 0);
    text.insert(0, 1, 'f');
    text = expr_.formatType(text, settings, scheme_.wsAfterDdTypeId);
    text.erase(text.find('f'), 1);  // behind the indent, if the stream has put one in front of it
    return text;
}

}  // namespace Brevis
