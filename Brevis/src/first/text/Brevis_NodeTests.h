// Tests on nodes of the tree that the formatting and the wrapping pass share. They read nodes alone, no text.
#pragma once

#include "Cpp_Nodes.h"

namespace Brevis {

// Whether the body has real braces, and does not just stand for a single statement.
bool hasBraces(const Cpp::InteriorNode& body);
bool isLineCommentNode(const Cpp::SyntaxNode& node);
// A child that ends its own line: a line comment or a directive.
bool endsLine(const Cpp::SyntaxNode& node);

// The keyword of a control statement's head, or kind -1 without one.
Trn::TokenKind keywordOf(const Cpp::CtrlSubStmtHeadNode* head);
// An `else` whose body is, without braces, an `if` statement alone.
bool isElseIf(const Cpp::CtrlSubStmtNode& node);

}  // namespace Brevis
