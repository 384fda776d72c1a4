// The pass that folds marked regions of source, which are to be left alone, into single comment nodes. It changes the
// tree; it reads no source text.
#pragma once

#include <string>
#include <vector>

#include "Cpp_TreeWalk.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {

// Run by `root.accept(preFormatter)`, for any number of trees in turn.
//
// A comment that consists of an opening marker opens a region, and the next comment that consists of its closing marker
// closes it. The closing comment then stands for the whole region: it has the positions of both comments, no text and
// its `verbatim` flag set, and the nodes in front of it, the opening comment included, are gone. A region that is never
// closed is no region.
class CppPreFormatter : public Cpp::TreeWalk {
public:
    explicit CppPreFormatter(RegionTable regions) : regions_(std::move(regions)) {}

    using TreeWalk::visit;
    void visit(Cpp::RootNode& root) override;
    void visit(Cpp::CommentNode& comment) override;
    // The initializers come first. What stands between their brackets opens and closes no region.
    void visit(Cpp::CtorDeclNode& node) override;
    void visit(Cpp::InitializerNode&) override {}

private:
    struct Region {
        const Cpp::CommentNode* start;
        const Cpp::CommentNode* end;
    };

    void openRegion(const Cpp::CommentNode& comment, const std::string& marker);
    void closeRegion(Cpp::CommentNode& comment);
    void removeRegions(Cpp::RootNode& root);

    const RegionTable regions_;

    // State of one run
    const Cpp::CommentNode* regionStart_ = nullptr;
    std::string closeMarker_;  // empty while no region is open
    std::vector<Region> found_;
};

}  // namespace Brevis
