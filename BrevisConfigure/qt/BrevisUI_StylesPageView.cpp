// How the controls of a page stand.
#include "qt/BrevisUI_StylesPageView.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/BrevisUI_FieldControl.h"
#include "qt/BrevisUI_Translated.h"

namespace BrevisUI {

StylesPageView::StylesPageView(StylesBasePage& page, const HelpOf& helpOf, QWidget* parent)
    : QWidget(parent), page_(page) {
    for (const PageField& field : page.fields()) {
        if (field.isHidden) continue;
        FieldControl* control = FieldControl::make(page, field, this);
        connect(control, &FieldControl::edited, this, &StylesPageView::edited);
        if (helpOf) {
            const FieldHelp help = helpOf(field.key());
            control->setHelp(help.toolTip, help.whatsThis);
        }
        controls_.push_back(control);
    }
    auto* column = new QVBoxLayout(this);
    const auto groupOf = [](const FieldControl* control) { return control->field().group; };
    for (auto first = controls_.begin(); first != controls_.end();) {
        const auto end = std::find_if(first, controls_.end(),
                                      [&](const FieldControl* control) { return groupOf(control) != groupOf(*first); });
        addGroup(column, {first, end});
        first = end;
    }
    column->addStretch();
    refresh();
}

// Controls outside all groups stand in a grid of their own, as far from the edge as those in a box.
void StylesPageView::addGroup(QVBoxLayout* column, const std::vector<FieldControl*>& group) {
    auto* grid = new QGridLayout;
    const std::string_view title = group.front()->field().group;
    if (title.empty()) {
        column->addLayout(grid);
    } else {
        auto* box = new QGroupBox(translated(title), this);
        box->setLayout(grid);
        column->addWidget(box);
    }
    for (FieldControl* control : group) {
        const bool isIn =
            std::any_of(group.begin(), group.end(), [&](FieldControl* other) { return other->takeIn(*control); });
        if (!isIn) addRow(grid, control);
    }
    grid->setColumnStretch(1, 1);
}

void StylesPageView::addRow(QGridLayout* grid, FieldControl* control) {
    const int row = grid->rowCount();
    if (control->head()) {
        grid->addWidget(control->head(), row, 0);
        grid->addWidget(control->editor(), row, 1);
    } else {
        grid->addWidget(control->editor(), row, 0, 1, 2);
    }
    grid->addWidget(control->setBackButton(), row, 2, Qt::AlignTop);
}

void StylesPageView::refresh() {
    for (FieldControl* control : controls_) control->refresh();
    alignEditors();
}

// The editors of all groups begin in one line.
void StylesPageView::alignEditors() {
    int width = 0;
    for (const FieldControl* control : controls_) {
        if (control->head() && !control->head()->isHidden())
            width = std::max(width, control->head()->sizeHint().width());
    }
    for (const FieldControl* control : controls_) {
        if (control->head()) control->head()->setMinimumWidth(width);
    }
}

FieldControl* StylesPageView::control(std::string_view key) const {
    const PageField* field = page_.field(key);
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const FieldControl* control) { return &control->field() == field; });
    return found == controls_.end() ? nullptr : *found;
}

bool StylesPageView::isChanged() const {
    return std::any_of(controls_.begin(), controls_.end(),
                       [&](const FieldControl* control) { return page_.isChanged(control->field().key()); });
}

}  // namespace BrevisUI
