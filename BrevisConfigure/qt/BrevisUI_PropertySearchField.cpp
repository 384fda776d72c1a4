// Typing, the list of finds, and the keys.
#include "qt/BrevisUI_PropertySearchField.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QStandardItemModel>
#include <algorithm>

#include "editor/BrevisUI_PageTable.h"
#include "qt/BrevisUI_Translated.h"

namespace BrevisUI {

namespace {

constexpr int keyRole = Qt::UserRole;

bool isTwiceOnPage(const Brevis::PropertyInfo& property) {
    return std::count_if(
               std::begin(Brevis::Catalogue::properties), std::end(Brevis::Catalogue::properties),
               [&](const auto& other) { return other.page == property.page && other.label == property.label; }) > 1;
}

// "Enums: Before body open", with the group where the page has the label twice.
QString rowText(const FoundProperty& found) {
    const QString page = translatedPlain(pageTable[found.tab].title);
    const QString label = bareLabel(found.property->label);
    if (!isTwiceOnPage(*found.property)) return QStringLiteral("%1: %2").arg(page, label);
    return QStringLiteral("%1: %2 (%3)").arg(page, label, translatedPlain(found.property->group));
}

}  // namespace

PropertySearchField::PropertySearchField(HelpOf helpOf, QWidget* parent)
    : QLineEdit(parent), helpOf_(std::move(helpOf)), found_(new QStandardItemModel(this)), list_(new QCompleter(this)) {
    setPlaceholderText(tr("Find a property"));
    setClearButtonEnabled(true);
    setAccessibleName(tr("Find a property by its label, its key or a word of its help"));
    list_->setModel(found_);
    list_->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    constexpr int mostRows = 15;
    list_->setMaxVisibleItems(mostRows);
    list_->setWidget(this);
    connect(this, &QLineEdit::textEdited, this, &PropertySearchField::find);
    connect(list_, QOverload<const QModelIndex&>::of(&QCompleter::activated), this,
            [this](const QModelIndex& index) { Q_EMIT chosen(index.data(keyRole).toString()); });
}

void PropertySearchField::find(const QString& query) {
    found_->clear();
    for (const FoundProperty& found : findProperties(fromQt(query), helpOf_)) {
        auto* item = new QStandardItem(rowText(found));
        item->setData(toQt(found.property->key), keyRole);
        item->setToolTip(toQt(found.property->key));
        found_->appendRow(item);
    }
    if (found_->rowCount() == 0) {
        list_->popup()->hide();
    } else {
        list_->complete();
    }
}

// The row that stands out in the list, or else the first one.
void PropertySearchField::choose() {
    const int row = list_->popup()->isVisible() ? std::max(list_->popup()->currentIndex().row(), 0) : 0;
    list_->popup()->hide();
    Q_EMIT chosen(found_->index(row, 0).data(keyRole).toString());
}

void PropertySearchField::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !text().isEmpty()) {
        if (found_->rowCount() > 0) choose();
    } else if (event->key() == Qt::Key_Escape && !text().isEmpty()) {
        clear();
        found_->clear();
    } else if (event->key() == Qt::Key_Down && found_->rowCount() > 0) {
        list_->complete();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

}  // namespace BrevisUI
