#include "first/wrap/Brevis_FindFirstCast.h"

#include "first/wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

using namespace Trn::Kind;

namespace {

// Counts what is open. Braces hide no cast, and a `<` counts only inside the type of one.
class CastWalk {
public:
    CastWalk(const LexedText& text, std::size_t from, std::size_t end) : text_(text), at_(from), end_(end) {}

    bool more() const { return at_ + 1 < end_; }
    void next() { ++at_; }
    std::size_t at() const { return at_; }

    // Counts the current token, or the group that it opens, at whose end the walk then stands. Tells whether it is the
    // `>` that closes a type.
    bool count() {
        switch (kind()) {
            case OpenParen:
                return open(paren_);
            case CloseParen:
                return close(paren_);
            case OpenBracket:
                return open(bracket_);
            case CloseBracket:
                return close(bracket_);
            case Less:
                if (angle_ > 0) ++angle_;
                return false;
            case Greater:
                return angle_ > 0 && --angle_ == 0 && atDepthZero();
            default:
                return WrapTokens::isNamedCast(kind()) && atDepthZero() && openCast();
        }
    }

private:
    Trn::TokenKind kind() const { return text_[at_].kind; }
    bool atDepthZero() const { return paren_ == 0 && bracket_ == 0; }

    bool open(int& depth) {
        const std::size_t close = text_.closeOf(at_);
        const bool hidesCasts = depth >= 0 && angle_ == 0 && text_.pairs().areShown();
        if (hidesCasts && close >= end_) {
            at_ = end_;
        } else if (hidesCasts && text_.pairs().isSealed(at_, angle_)) {
            at_ = close;
        } else {
            ++depth;
        }
        return false;
    }

    static bool close(int& depth) {
        --depth;
        return false;
    }

    bool openCast() {
        do ++at_;
        while (more() && kind() != Less);
        const std::size_t close = text_.closeOf(at_);
        if (angle_ == 0 && close < end_ && text_.pairs().isSealed(at_, angle_)) {
            at_ = close;
            return more();
        }
        ++angle_;
        return false;
    }

    const LexedText& text_;
    std::size_t at_;
    std::size_t end_;
    int paren_ = 0;
    int bracket_ = 0;
    int angle_ = 0;
};

}  // namespace

std::size_t FindFirstCast::find(const LexedText& text, std::size_t from, std::size_t end) {
    if (!text.holdsNamedCast(from, end)) return end;
    for (CastWalk walk(text, from, end); walk.more(); walk.next()) {
        if (walk.count()) return walk.at();
    }
    return end;
}

}  // namespace Brevis
