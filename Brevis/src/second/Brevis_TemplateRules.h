// The gaps of template brackets, those of named casts among them, and behind a template's head.
#pragma once

#include "second/Brevis_ExprGaps.h"

namespace Brevis {

class TemplateRules {
public:
    explicit TemplateRules(ExprGaps& gaps);

    // `bracket` is the role of the innermost bracket that is open at the token.
    void format(TokenIndex token, Cpp::Role bracket);
    // Behind the last token of a head.
    void head(const Cpp::OutlineItem& item);

private:
    void angle(TokenIndex token);
    void beforeOpen(TokenIndex token);
    void comma(TokenIndex token, Cpp::Role bracket);

    ExprGaps& gaps_;
    const GapText& text_;
    GapProperty betweenParameters_ = gapProperty<&Scheme::wsBetweenTpParams>();
};

}  // namespace Brevis
