// The walk that finds the marked regions. The nodes inside them are removed by Cpp::NodeRangeRemover.
#include "first/format/Brevis_CppPreFormatter.h"

#include "Cpp_NodeRangeRemover.h"
#include "first/text/Brevis_Columns.h"
#include "first/text/Brevis_Copying.h"
#include "first/text/Brevis_Gaps.h"
#include "first/text/Brevis_StreamColumns.h"

namespace Brevis {

void CppPreFormatter::visit(Cpp::RootNode& root) {
    regionStart_ = nullptr;
    closeMarker_.clear();
    found_.clear();
    if (regions_.empty()) return;
    walkChildren(root);
    removeRegions(root);
}

void CppPreFormatter::visit(Cpp::CommentNode& comment) {
    const std::string body = comment.commentBody();
    const std::string marker(trimmedRight(trimmedLeft(body)));
    if (closeMarker_.empty()) {
        openRegion(comment, marker);
    } else if (marker == closeMarker_) {
        closeRegion(comment);
    }
}

void CppPreFormatter::visit(Cpp::CtorDeclNode& node) {
    walk(node.initializers.get());
    walk(node.head.get());
    walk(node.body.get());
}

void CppPreFormatter::openRegion(const Cpp::CommentNode& comment, const std::string& marker) {
    for (const auto& [opening, closing] : regions_) {
        if (opening != marker) continue;
        closeMarker_ = closing;
        regionStart_ = &comment;
        return;
    }
}

void CppPreFormatter::closeRegion(Cpp::CommentNode& comment) {
    closeMarker_.clear();
    comment.setFirstPosition(regionStart_->firstPosition());
    comment.text = {};
    comment.verbatim = true;
    found_.push_back({regionStart_, &comment});
}

// All regions go in one walk behind the search: a walk for each of them would cost the whole tree for every region, and
// would shorten the lists that the search is standing in. The result is the same, because what a region removes lies
// in front of its closing comment and the search has passed it.
void CppPreFormatter::removeRegions(Cpp::RootNode& root) {
    if (found_.empty()) return;
    Cpp::NodeRangeRemover remover;
    for (const Region& region : found_) remover.addRange(*region.start, *region.end);
    found_.clear();
    remover.visit(root);
}

}  // namespace Brevis
