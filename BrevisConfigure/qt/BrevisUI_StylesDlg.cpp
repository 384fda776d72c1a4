// The commands of the scheme editor, and what the rules ask of its window.
#include "qt/BrevisUI_StylesDlg.h"

#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>

#include "qt/BrevisUI_CompareDlg.h"
#include "qt/BrevisUI_FieldControl.h"
#include "qt/BrevisUI_PreviewPane.h"
#include "qt/BrevisUI_SchemeSaveAsDlg.h"
#include "qt/BrevisUI_StylesPageView.h"
#include "qt/BrevisUI_Translated.h"

namespace BrevisUI {

namespace {

constexpr std::string_view schemeFilter = "Corvane Schemes|*.fsc||";

}  // namespace

// ---- Pages

bool StylesDlg::showPage(std::size_t tab) {
    const ChangeResult refusal = model_.sheet().activePage().refusal();
    if (!refusal) {
        model_.sheet().setActiveTab(tab);
        stack_->setCurrentIndex(static_cast<int>(tab));
    }
    const QSignalBlocker blocker(tabs_);
    tabs_->setCurrentRow(static_cast<int>(model_.sheet().activeTab()));
    if (refusal) tellRefusal(refusal);
    return !refusal;
}

void StylesDlg::showProperty(std::string_view key) {
    const StylesBasePage* page = model_.sheet().pageOf(key);
    if (!page || !showPage(page->tab())) return;
    FieldControl* control = views_[page->tab()]->control(key);
    if (!control) return;
    if (auto* scroller = qobject_cast<QScrollArea*>(stack_->currentWidget())) {
        scroller->ensureWidgetVisible(control->editor());
    }
    highlight(control);
    control->takeFocus();
}

void StylesDlg::highlight(FieldControl* control) {
    if (highlighted_) highlighted_->setHighlighted(false);
    highlighted_ = control;
    if (!control) return;
    control->setHighlighted(true);
    constexpr int milliseconds = 4000;
    highlightTimer_.start(milliseconds);
}

void StylesDlg::tellRefusal(const ChangeResult& refusal) {
    if (!refusal) return;
    showWarning(refusal->message);
    const std::size_t tab = refusal->page->tab();
    stack_->setCurrentIndex(static_cast<int>(tab));
    if (FieldControl* control = views_[tab]->control(refusal->key)) control->takeFocus();
}

// ---- Schemes

void StylesDlg::showCurrent() {
    const QSignalBlocker blocker(chooser_);
    chooser_->clear();
    for (const StylesDlgModel::ChooserRow& row : model_.chooserRows()) chooser_->addItem(toQt(row.name));
    chooser_->setCurrentIndex(model_.hasCurrent() ? chooser_->findText(toQt(model_.currentName())) : -1);
    builtInMark_->setVisible(model_.isCurrentBuiltIn());
    deleteButton_->setEnabled(model_.hasCurrent());
    compareAction_->setEnabled(model_.hasCurrent());
    exportAction_->setEnabled(model_.hasCurrent());
}

void StylesDlg::choose(int row) {
    const std::string name = fromQt(chooser_->itemText(row));
    if (name == model_.currentName()) return;
    preview_->forgetMoves();
    const ChangeResult refusal = model_.choose(name);
    showCurrent();
    tellRefusal(refusal);
}

void StylesDlg::saveAs() {
    model_.saveAs();
    showCurrent();
}

void StylesDlg::removeCurrent() {
    preview_->forgetMoves();
    model_.deleteCurrent();
    showCurrent();
}

void StylesDlg::compare() { CompareDlg(model_, this).exec(); }

void StylesDlg::importScheme() {
    const std::vector<std::string> paths =
        dialogs_.chooseFiles(this, {.filter = std::string(schemeFilter), .laterFilter = "", .directory = ""});
    if (paths.empty()) return;
    preview_->forgetMoves();
    model_.importScheme(paths.front());
    showCurrent();
}

void StylesDlg::exportScheme() {
    const std::string proposal = model_.currentName() + std::string(PropertySetStore::extension);
    const std::optional<std::string> path = dialogs_.chooseNewFile(this, schemeFilter, proposal);
    if (path) model_.exportScheme(*path);
}

void StylesDlg::accept() {
    const StylesDlgModel::Closing closing = model_.accept();
    showCurrent();
    tellRefusal(closing.refusal);
    if (closing.isDone) QDialog::accept();
}

// ---- Preview and help

// Without the preview the window is narrower by just what the preview takes.
void StylesDlg::showPreview(bool isShown) {
    const bool wasShown = !preview_->isHidden();
    model_.memory().isPreviewShown = isShown;
    previewButton_->setText(isShown ? tr("Hide &Preview <<") : tr("Show &Preview >>"));
    if (wasShown == isShown) return;
    if (wasShown) previewWidth_ = preview_->width() + splitter_->handleWidth();
    const int sheetWidth = splitter_->sizes().front();
    const int newWidth = width() + (isShown ? previewWidth_ : -previewWidth_);
    if (isShown) preview_->redraw();
    preview_->setVisible(isShown);
    if (isMaximized() || isFullScreen()) return;
    // The least width follows at once, not with the next events.
    splitter_->refresh();
    layout()->invalidate();
    layout()->activate();
    resize(newWidth, height());
    if (isShown) splitter_->setSizes({sheetWidth, previewWidth_ - splitter_->handleWidth()});
}

void StylesDlg::askForHelp() {
    const std::string_view topic = model_.sheet().activePage().helpTopic();
    Q_EMIT helpRequested(topic.empty() ? QStringLiteral("FormattingOptions.htm") : toQt(topic));
}

// ---- What the rules ask

void StylesDlg::showWarning(std::string_view text) { dialogs_.tell(this, Dialogs::Icon::Warning, text); }

bool StylesDlg::askYesNo(std::string_view text) { return dialogs_.confirm(this, text); }

StylesDlgHost::Answer StylesDlg::askYesNoCancel(std::string_view text) {
    switch (dialogs_.ask(this, text)) {
        case BrevisUI::Answer::Yes:
            return StylesDlgHost::Answer::Yes;
        case BrevisUI::Answer::No:
            return StylesDlgHost::Answer::No;
        default:
            return StylesDlgHost::Answer::Cancel;
    }
}

std::optional<std::string> StylesDlg::askSchemeName(std::string_view proposal) {
    SchemeSaveAsDlg dialog(toQt(proposal), this);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return fromQt(dialog.name());
}

// ---- What the rules tell

void StylesDlg::fieldsChanged(const StylesBasePage& page) {
    views_[page.tab()]->refresh();
    showChangeMark(page.tab());
}

void StylesDlg::showChangeMark(std::size_t tab) {
    QListWidgetItem* item = tabs_->item(static_cast<int>(tab));
    const bool isChanged = views_[tab]->isChanged();
    QFont font = tabs_->font();
    font.setBold(isChanged);
    item->setFont(font);
    const QString title = item->text();
    item->setData(Qt::AccessibleTextRole, isChanged ? tr("%1, changed").arg(title) : title);
}

void StylesDlg::previewOutdated() {
    if (model_.memory().isPreviewShown) preview_->redraw();
}

}  // namespace BrevisUI
