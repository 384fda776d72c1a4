// Two choosers and a table.
#include "qt/BrevisUI_CompareDlg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "editor/BrevisUI_SchemeComparison.h"
#include "qt/BrevisUI_Translated.h"

namespace BrevisUI {

namespace {

QString valueText(const std::optional<std::string>& value) { return value ? toQt(*value) : QStringLiteral("\u2013"); }

QString withoutColon(std::string_view label) {
    const std::size_t end = label.find_last_not_of(" :");
    return toQt(label.substr(0, end + 1));
}

// Also those that are equal.
std::vector<PropertyDifference> allProperties(const Brevis::PropertySet& first, const Brevis::PropertySet& second) {
    std::vector<PropertyDifference> rows = compareSchemes(first, {});
    for (PropertyDifference& row : compareSchemes({}, second)) {
        const auto same =
            std::find_if(rows.begin(), rows.end(), [&](const auto& other) { return other.key == row.key; });
        if (same == rows.end()) {
            rows.push_back(std::move(row));
        } else {
            same->second = std::move(row.second);
        }
    }
    return rows;
}

}  // namespace

CompareDlg::CompareDlg(const StylesDlgModel& model, QWidget* parent)
    : QDialog(parent),
      model_(model),
      first_(new QComboBox(this)),
      second_(new QComboBox(this)),
      showsAll_(new QCheckBox(tr("Show &equal values too"), this)),
      rows_(new QTreeWidget(this)),
      count_(new QLabel(this)) {
    setWindowTitle(tr("Compare Schemes"));
    first_->setObjectName(QStringLiteral("first"));
    second_->setObjectName(QStringLiteral("second"));
    rows_->setObjectName(QStringLiteral("rows"));
    showsAll_->setObjectName(QStringLiteral("showsAll"));
    for (const StylesDlgModel::ChooserRow& row : model.chooserRows()) {
        for (QComboBox* chooser : {first_, second_}) chooser->addItem(toQt(row.name));
    }
    first_->setCurrentText(toQt(model.currentName()));
    second_->setCurrentIndex((first_->currentIndex() + 1) % first_->count());
    rows_->setRootIsDecorated(false);
    rows_->setAllColumnsShowFocus(true);
    rows_->setAlternatingRowColors(true);
    rows_->setUniformRowHeights(true);
    rows_->setAccessibleName(tr("Properties of both schemes"));

    auto* head = new QGridLayout;
    const auto addChooser = [&](int row, const QString& text, QComboBox* chooser) {
        auto* label = new QLabel(text, this);
        label->setBuddy(chooser);
        head->addWidget(label, row, 0);
        head->addWidget(chooser, row, 1);
    };
    addChooser(0, tr("&First scheme:"), first_);
    addChooser(1, tr("&Second scheme:"), second_);
    head->setColumnStretch(1, 1);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addLayout(head);
    column->addWidget(showsAll_);
    column->addWidget(rows_, 1);
    column->addWidget(count_);
    column->addWidget(buttons);

    connect(first_, &QComboBox::currentIndexChanged, this, &CompareDlg::compare);
    connect(second_, &QComboBox::currentIndexChanged, this, &CompareDlg::compare);
    connect(showsAll_, &QCheckBox::toggled, this, &CompareDlg::compare);
    compare();
    rows_->header()->resizeSections(QHeaderView::ResizeToContents);
    constexpr int columns = 150, lines = 30;
    resize(fontMetrics().averageCharWidth() * columns, fontMetrics().lineSpacing() * lines);
}

void CompareDlg::compare() {
    const std::string names[] = {fromQt(first_->currentText()), fromQt(second_->currentText())};
    rows_->clear();
    rows_->setHeaderLabels({tr("Page"), tr("Property"), toQt(names[0]), toQt(names[1]), tr("Key")});
    int differing = 0;
    const Brevis::PropertySet first = model_.shownScheme(names[0]), second = model_.shownScheme(names[1]);
    const bool isAll = showsAll_->isChecked();
    for (const PropertyDifference& row : isAll ? allProperties(first, second) : compareSchemes(first, second)) {
        auto* item = new QTreeWidgetItem(rows_, {toQt(row.page), withoutColon(row.label), valueText(row.first),
                                                 valueText(row.second), toQt(row.key)});
        if (row.first == row.second) continue;
        ++differing;
        QFont bold = font();
        bold.setBold(true);
        for (const int column : {2, 3}) item->setFont(column, isAll ? bold : font());
    }
    count_->setText(differing == 1 ? tr("1 value differs.") : tr("%1 values differ.").arg(differing));
}

}  // namespace BrevisUI
