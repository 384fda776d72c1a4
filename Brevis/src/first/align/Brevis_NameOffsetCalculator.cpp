// Measures the types in front of names.
#include "first/align/Brevis_NameOffsetCalculator.h"

#include <algorithm>

#include "Vellum_WhiteSpace.h"
#include "first/text/Brevis_Columns.h"
#include "first/text/Brevis_Copying.h"
#include "first/text/Brevis_Gaps.h"
#include "first/text/Brevis_Signs.h"
#include "first/text/Brevis_StreamColumns.h"

namespace Brevis {

namespace {

using Vellum::isSpace;

// The index of the last character in front of the last mark, or that of the last character of the text where there is
// nothing in front of the mark but one character.
std::size_t lastIndexBeforeMark(std::string_view text, char mark) {
    const std::size_t found = text.rfind(mark);
    if (found == std::string::npos || found == 0) return text.size() - 1;
    std::size_t index = found - 1;
    while (index > 0 && isSpace(text[index])) --index;
    return index == 0 ? text.size() - 1 : index;
}

}  // namespace

NameOffsetCalculator::NameOffsetCalculator(const Scheme& scheme)
    : OffsetCalculator(scheme),
      alignClassMembers_(scheme.alignClassMemberNamesLeft),
      alignFunctions_(scheme.alignFnDeclNamesLeft),
      alignData_(scheme.alignDdNamesLeft),
      asterisk_{'*', scheme.asteriskAnchor, signGap(scheme.asteriskAnchor, scheme.wsBetweenAsteriskAnchor),
                scheme.hangingAsterisk},
      ampersand_{'&', scheme.ampersandAnchor, signGap(scheme.ampersandAnchor, scheme.wsBetweenAmpersandAnchor),
                 scheme.hangingAmpersand} {}

int NameOffsetCalculator::signGap(int anchor, const WsProperty& gap) const {
    return anchor != -1 && gap.isSet ? columnAfter(gap.text, 0, tabSize()) : -1;
}

// The group in which a class ends stays open: the next end of a group closes it under the class rule, and a data
// declaration behind the class joins it before that.
void NameOffsetCalculator::visit(Cpp::ClassBodyNode& node) {
    const bool outer = inClass_;
    inClass_ = true;
    visitChildren(node);
    inClass_ = outer;
    classJustEnded_ = true;
}

void NameOffsetCalculator::visit(Cpp::DataDeclNode& node) {
    if ((inClass_ && alignClassMembers_) || alignData_) {
        if (!node.type) {
            pendingData_.push_back(&node);
        } else if (!joinGroup(node, startOf(node), *node.type, pendingData_, dataWidth_)) {
            return;
        }
    }
    clearTemplate();
}

void NameOffsetCalculator::visit(Cpp::FunctionDeclNode& node) {
    if (!(inClass_ && alignClassMembers_) && !alignFunctions_) {
        clearTemplate();
        closeAndEnter(node.body.get());
        return;
    }
    if (node.head && !node.body) {
        if (!joinDeclaration(node)) return;
    } else if (node.head) {
        clearTemplate();
        closeAndEnter(node.body.get());
    }
    clearTemplate();
}

bool NameOffsetCalculator::joinDeclaration(const Cpp::FunctionDeclNode& node) {
    if (!node.head->returnType) {
        pendingFunctions_.push_back(&node);
        return true;
    }
    return joinGroup(node, startOf(*node.head), *node.head->returnType, pendingFunctions_, functionWidth_);
}

// The condition isn't that of the function visit: inside a class the rule for functions doesn't count here.
void NameOffsetCalculator::visit(Cpp::CtorDeclNode& node) {
    if (inClass_ ? alignClassMembers_ : alignFunctions_) {
        if (node.head && !node.body) pendingFunctions_.push_back(&node);
        if (node.head && node.body) closeAndEnter(node.body.get());
    } else {
        clearTemplate();
        if (node.body) closeAndEnter(node.body.get());
    }
    clearTemplate();
}

bool NameOffsetCalculator::joinGroup(const Cpp::SyntaxNode& node, Cpp::Position start, const Cpp::TypeNode& type,
                                     Group& group, int& width) const {
    if (holdsCommentOrDirective(type.text)) return false;
    group.push_back(&node);
    width = std::max(width, measureTypeWidth(start, type));
    return true;
}

const NameOffsetCalculator::SignStyle* NameOffsetCalculator::trailingSign(std::string_view type) const {
    if (endsInMark(type, asterisk_.mark)) return &asterisk_;
    if (endsInMark(type, ampersand_.mark)) return &ampersand_;
    return nullptr;
}

int NameOffsetCalculator::measureTypeWidth(Cpp::Position start, const Cpp::TypeNode& type) const {
    const SignStyle* sign = trailingSign(type.text);
    if (!sign) return sameLineDistance(start, type.lastPosition()) + 1;
    if (sign->anchor == 1) return typeAnchoredWidth(start, type, *sign);
    if (sign->gap == -1) return sameLineDistance(start, type.lastPosition());
    if (sign->anchor == 0) {
        return sameLineDistance(start, type.firstPosition()) + columnAfter(type.text, 0, tabSize()) + sign->gap;
    }
    return sameLineDistance(start, type.lastPosition()) + 1;
}

// The sign will stand with the name, so the type ends in front of it.
int NameOffsetCalculator::typeAnchoredWidth(Cpp::Position start, const Cpp::TypeNode& type,
                                            const SignStyle& sign) const {
    const std::size_t end = lastIndexBeforeMark(type.text, sign.mark) + 1;
    const std::string_view text = std::string_view(type.text).substr(0, end);
    const int width = sameLineDistance(start, type.firstPosition()) + columnAfter(text, 0, tabSize());
    // A hanging sign needs a column of its own left of the names.
    const bool needsRoom = sign.hanging && roundUpToMultiple(width + 1, tabSize()) <= width + 1;
    return needsRoom ? width + tabSize() : width;
}

void NameOffsetCalculator::settle(Group& group, ColumnTable& columns, int column) {
    for (const Cpp::SyntaxNode* node : group) columns[node] = column;
    group.clear();
}

void NameOffsetCalculator::endGroup() {
    // One column more, so that a name never touches the longest type.
    if (functionWidth_ > 0) ++functionWidth_;
    if (dataWidth_ > 0) ++dataWidth_;
    int functionColumn = roundUpToMultiple(functionWidth_, tabSize());
    int dataColumn = roundUpToMultiple(dataWidth_, tabSize());
    if (alignClassMembers_ && (inClass_ || classJustEnded_)) {
        classJustEnded_ = false;
        functionColumn = dataColumn = std::max(functionColumn, dataColumn);
    }
    settle(pendingData_, dataNameColumns_, dataColumn);
    settle(pendingFunctions_, functionNameColumns_, functionColumn);
    functionWidth_ = dataWidth_ = 0;
}

}  // namespace Brevis
