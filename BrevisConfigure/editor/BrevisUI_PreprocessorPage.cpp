// Three radio buttons and their two keys, and the names of macros, which are fields like those of other pages.
#include "editor/BrevisUI_PreprocessorPage.h"

#include <span>
#include <vector>

#include "editor/BrevisUI_FieldStorage.h"

namespace BrevisUI {

namespace {

constexpr std::string_view alignKey = "ALIGN_PPD_LEFT_MOST", leaveKey = "PPD_DO_NOT_FORMAT";

enum Button : std::size_t { withText, atMargin, asIs };

}  // namespace

PreprocessorPage::PreprocessorPage(StylesSheet& sheet)
    : StylesBasePage(sheet, pageTable[tabOf(Brevis::PropertyPage::Preprocessor)]) {
    PageField field = makeField(*Brevis::Catalogue::find(alignKey));
    field.kind = FieldKind::Choice;
    field.group = field.label = "Indent";
    field.choices = {"Indent with surrounding text", field.property->label, Brevis::Catalogue::find(leaveKey)->label};
    std::erase_if(fields_, [](const PageField& other) { return other.key() == alignKey || other.key() == leaveKey; });
    fields_.insert(fields_.begin(), field);
    keepAsUnchanged();
}

std::string_view PreprocessorPage::fieldKey(std::string_view key) const { return key == leaveKey ? alignKey : key; }

void PreprocessorPage::load() {
    for (PageField& field : std::span(fields_).subspan(1)) loadField(field);
    loadButtons();
}

void PreprocessorPage::loadButtons() {
    bool isLeft = false;
    bool isAligned = Brevis::Catalogue::find(alignKey)->defaultNumber != 0;
    const bool hasLeave = scheme().getBool(leaveKey, isLeft);
    const bool hasAlign = scheme().getBool(alignKey, isAligned);
    fields_.front().value.selected = isLeft ? asIs : isAligned ? atMargin : withText;
    if (hasLeave && (hasAlign || isLeft)) return;
    storeButtons();
    markModified();
}

void PreprocessorPage::store() {
    storeButtons();
    for (PageField& field : std::span(fields_).subspan(1)) storeField(field);
}

void PreprocessorPage::storeButtons() {
    const std::size_t selected = fields_.front().value.selected.value_or(withText);
    scheme().setBool(leaveKey, selected == asIs);
    if (selected == asIs) {
        eraseKey(alignKey, scheme());
    } else {
        scheme().setBool(alignKey, selected == atMargin);
    }
}

}  // namespace BrevisUI
