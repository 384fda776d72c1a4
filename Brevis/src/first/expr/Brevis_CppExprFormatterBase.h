// What the walkers of expression text share: the two list passes and the writers for text of several lines.
#pragma once

#include <string>
#include <string_view>

#include "Trn_TokenKind.h"
#include "first/text/Brevis_Columns.h"
#include "first/text/Brevis_Copying.h"
#include "first/text/Brevis_Gaps.h"
#include "first/text/Brevis_LeafDialect.h"
#include "first/text/Brevis_StreamColumns.h"
#include "scheme/Brevis_Scheme.h"

namespace Brevis {

// Tests on a token number.
constexpr bool isBinaryOp(Trn::TokenKind kind) {
    using namespace Trn::Kind;
    if (kind >= LessEqual && kind <= Question) return true;
    switch (kind) {
        case Colon:
        case Assign:
        case Star:
        case Amp:
        case Slash:
        case Plus:
        case Minus:
        case Tilde:
        case Percent:
        case ShiftLeft:
        case ShiftRight:
        case Less:
        case Greater:
        case Spaceship:
            return true;
        default:
            return false;
    }
}
constexpr bool isSign(Trn::TokenKind kind) { return kind == Trn::Kind::Star || kind == Trn::Kind::Amp; }
constexpr bool isBuiltinType(Trn::TokenKind kind) { return kind >= Trn::Kind::Char && kind <= Trn::Kind::Void; }
constexpr bool isAssignment(Trn::TokenKind kind) {
    return kind == Trn::Kind::EndOfInput || kind == Trn::Kind::Assign ||
           (kind >= Trn::Kind::StarAssign && kind <= Trn::Kind::PipeAssign);
}

// `settings` is taken from the caller's output stream, so that a scratch stream behaves as the real one would at
// the place where the text lands. The results hold the indent of the lines behind the first.
class CppExprFormatterBase {
public:
    // The scheme must outlive the formatter. `dialect` is that of the texts.
    explicit CppExprFormatterBase(const Scheme& scheme, LeafDialect dialect = {}) : scheme_(scheme),
                                                                                    dialect_(dialect) {}
    explicit CppExprFormatterBase(Scheme&& scheme, LeafDialect dialect = {}) = delete;
    virtual ~CppExprFormatterBase() = default;

    // The text with the white space round each separator of token number `kind` at depth zero replaced, items
    // lining up under the first where a value breaks the line.
    virtual std::string formatSeparated(std::string_view text, Trn::TokenKind kind, const WsProperty& wsBefore,
                                        const WsProperty& wsAfter, const IndentStreamSettings& settings) const;
    // The same replacement, written exactly as the values stand, without lining up.
    virtual std::string formatAround(std::string_view text, Trn::TokenKind kind, const WsProperty& wsBefore,
                                     const WsProperty& wsAfter, const IndentStreamSettings& settings) const;
    // A stretch of several lines from `in` to `out`, its lines keeping their layout relative to the first.
    virtual void writeMultiLine(Position first, Position last, ITextDocStream& in, OIndentStream& out) const;
    // A preprocessor directive, by ALIGN_PPD_LEFT_MOST.
    virtual void writeDirective(Position first, Position last, ITextDocStream& in, OIndentStream& out) const;

    // The text written as ordinary text at the place that `settings` tells.
    static std::string writeOrdinary(std::string_view text, const IndentStreamSettings& settings);

    LeafDialect dialect() const { return dialect_; }

protected:
    const Scheme& scheme() const { return scheme_; }

private:
    class ListPass;

    const Scheme& scheme_;
    const LeafDialect dialect_;
};

}  // namespace Brevis
