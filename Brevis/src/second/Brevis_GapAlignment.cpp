// From left to right: what stands further to the right sees where the columns before it came to stand.
#include "second/Brevis_GapAlignment.h"

#include "second/Brevis_CommentColumns.h"
#include "second/Brevis_DeclarationColumns.h"
#include "second/Brevis_GapWriter.h"
#include "second/Brevis_KeptColumns.h"

namespace Brevis {

namespace {

// What keeps the author's own columns; none if there are no such.
std::optional<KeptColumns> keptColumns(const GapText& text, const Scheme& scheme, GapTable& gaps) {
    if (!KeptColumns::isWanted(text, scheme)) return std::nullopt;
    KeptColumns::keepRows(text, scheme, gaps);
    return std::optional<KeptColumns>(std::in_place, text, scheme, gaps);
}

}  // namespace

std::optional<std::string> alignGaps(const GapText& text, const Scheme& scheme, GapTable& gaps) {
    const auto places = [&] { return GapWriter(text, scheme, gaps).measure(); };
    if (DeclarationColumns::namesAreWanted(scheme)) DeclarationColumns(text, scheme, gaps, places()).alignNames();
    if (DeclarationColumns::valuesAreWanted(scheme)) DeclarationColumns(text, scheme, gaps, places()).alignValues();
    // Where comments are not aligned, the author's columns of them come before their distance.
    const bool alignsComments = scheme.alignTrailingComments;
    if (CommentColumns::isWanted(scheme) && !alignsComments) CommentColumns(text, scheme, gaps).run();
    std::optional<KeptColumns> kept = keptColumns(text, scheme, gaps);
    KeptColumns* const keeper = kept ? &*kept : nullptr;
    if (!alignsComments) {
        if (keeper == nullptr) return std::nullopt;
        return GapWriter(text, scheme, gaps, keeper).write();
    }
    CommentDraft draft(text, scheme, gaps, keeper);
    CommentColumns(text, scheme, gaps, &draft).run();
    return draft.finish();
}

}  // namespace Brevis
