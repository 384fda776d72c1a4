// One operation a sort of construct.
#include "second/Brevis_SpacingRules.h"

#include "second/Brevis_DeclarationRules.h"

namespace Brevis {

using Cpp::Role;

void SpacingRules::run() {
    DeclarationRules declarations(text_, scheme_, gaps_);
    for (TokenIndex token = 1; token < text_.size(); ++token) {
        if (text_.isTrivia(token)) continue;
        operators(token);
        declarations.format(token);
    }
}

void SpacingRules::operators(TokenIndex token) {
    const Role role = text_.role(token);
    if (role != Role::Binary && role != Role::Comparison && role != Role::Assignment) return;
    const auto set = [&](TokenIndex at) {
        if (scheme_.keepLineBreaksInExpr) {
            gaps_.setKeepingLines(at, gapProperty<&Scheme::wsBetweenExprOpOperands>());
        } else {
            gaps_.set<&Scheme::wsBetweenExprOpOperands>(at);
        }
    };
    set(token);
    set(text_.next(token));
}

}  // namespace Brevis
