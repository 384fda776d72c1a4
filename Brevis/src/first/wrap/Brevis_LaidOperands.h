// Operands whose groups are wrapped in place.
#pragma once

#include "first/wrap/Brevis_LaidRange.h"
#include "first/wrap/Brevis_LaidText.h"

namespace Brevis {

class LaidOperands {
public:
    class GroupPass;

    // All must outlive the object. The text must be suited for LaidText.
    LaidOperands(const LexedText& lexed, const WrapPlace& place, const WrapValues& values)
        : laid_(lexed, place, values), column_(place.column), values_(values) {}

    const LexedText& lexed() const { return laid_.lexed(); }
    // False too once the text has given up, which ends all steps.
    bool overflows() const {
        const LaidText::Part whole = laid_.whole();
        return !laid_.hasGivenUp() && laid_.overflows(whole.begin, whole.end, column_);
    }
    void climb() { climb(laid_.whole(), column_, {}); }

    bool hasGivenUp() const { return laid_.hasGivenUp(); }
    std::string text() const { return laid_.text(); }

private:
    void climb(const LaidText::Part& part, int column, std::optional<int> indentColumn);

    LaidText laid_;
    int column_;
    const WrapValues& values_;
};

// Wraps the groups of a level.
class LaidOperands::GroupPass {
public:
    explicit GroupPass(LaidOperands& operands) : operands_(operands) {}

    static constexpr bool rewrites() { return false; }
    // The group at `open`. The arguments of a call stand under its name.
    void wrapInside(std::size_t open, bool hasName);
    void finish() {}

private:
    LaidOperands& operands_;
};

}  // namespace Brevis
