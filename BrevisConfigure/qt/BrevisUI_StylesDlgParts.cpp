// How the window of the scheme editor is put together.
#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "qt/BrevisUI_FieldControl.h"
#include "qt/BrevisUI_PageScroller.h"
#include "qt/BrevisUI_PreviewPane.h"
#include "qt/BrevisUI_PropertySearchField.h"
#include "qt/BrevisUI_StylesDlg.h"
#include "qt/BrevisUI_StylesPageView.h"
#include "qt/BrevisUI_Translated.h"
#include "settings/BrevisUI_EditorSettings.h"

namespace BrevisUI {

StylesDlg::StylesDlg(PropertySetStore store, SettingsFile& settings, EditorMemory& memory, Dialogs& dialogs,
                     QWidget* parent)
    : QDialog(parent),
      dialogs_(dialogs),
      help_(HelpText::builtIn()),
      model_(std::move(store), settings, memory, *this, this) {
    setWindowTitle(tr("Manage Schemes"));
    setWindowFlag(Qt::WindowContextHelpButtonHint);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);

    auto* column = new QVBoxLayout(this);
    column->addLayout(makeChooserRow());
    splitter_ = new QSplitter(this);
    splitter_->setChildrenCollapsible(false);
    splitter_->addWidget(makeSheet());
    preview_ = new PreviewPane(model_, previewFont(settings), dialogs_, splitter_);
    preview_->setObjectName(QStringLiteral("previewPane"));
    splitter_->addWidget(preview_);
    splitter_->setStretchFactor(1, 1);
    column->addWidget(splitter_, 1);
    column->addLayout(makeButtonRow());
    addShortcuts();
    // Enter means OK wherever the focus is.
    for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(button->isDefault());
    connect(&highlightTimer_, &QTimer::timeout, this, [this] { highlight(nullptr); });
    highlightTimer_.setSingleShot(true);

    showCurrent();
    for (std::size_t tab = 0; tab < views_.size(); ++tab) showChangeMark(tab);
    // Sizes follow the font. The preview has room for the lines of the samples.
    constexpr int previewColumns = 72;
    const int sheetWidth = splitter_->widget(0)->sizeHint().width();
    const int previewWidth = fontMetrics().averageCharWidth() * previewColumns;
    resize(sheetWidth + previewWidth, sizeHint().height());
    splitter_->setSizes({sheetWidth, previewWidth});
    layout()->activate();
    showPage(model_.sheet().activeTab());
    showPreview(memory.isPreviewShown);
    tabs_->setFocus();
}

StylesDlg::~StylesDlg() = default;

QLayout* StylesDlg::makeChooserRow() {
    chooser_ = new QComboBox(this);
    chooser_->setObjectName(QStringLiteral("chooser"));
    chooser_->setAccessibleName(tr("Scheme"));
    // A long name doesn't widen the window.
    constexpr int characters = 24;
    chooser_->setMinimumContentsLength(characters);
    chooser_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* label = new QLabel(tr("&Scheme:"), this);
    label->setBuddy(chooser_);
    builtInMark_ = new QLabel(tr("(built-in)"), this);
    builtInMark_->setObjectName(QStringLiteral("builtIn"));
    auto* saveAsButton = new QPushButton(tr("Save &As..."), this);
    saveAsButton->setObjectName(QStringLiteral("saveAs"));
    deleteButton_ = new QPushButton(tr("&Delete"), this);
    deleteButton_->setObjectName(QStringLiteral("delete"));
    auto* more = new QMenu(this);
    compareAction_ = more->addAction(tr("&Compare..."), this, &StylesDlg::compare);
    more->addSeparator();
    more->addAction(tr("&Import..."), this, &StylesDlg::importScheme);
    exportAction_ = more->addAction(tr("&Export..."), this, &StylesDlg::exportScheme);
    auto* moreButton = new QPushButton(tr("&More"), this);
    moreButton->setObjectName(QStringLiteral("more"));
    moreButton->setMenu(more);

    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(chooser_, 1);
    row->addWidget(builtInMark_);
    row->addStretch(1);
    for (QPushButton* button : {saveAsButton, deleteButton_, moreButton}) row->addWidget(button);
    connect(chooser_, &QComboBox::activated, this, &StylesDlg::choose);
    connect(saveAsButton, &QPushButton::clicked, this, &StylesDlg::saveAs);
    connect(deleteButton_, &QPushButton::clicked, this, &StylesDlg::removeCurrent);
    return row;
}

QWidget* StylesDlg::makeSheet() {
    auto* sheet = new QWidget(this);
    auto* find = new PropertySearchField([this](std::string_view key) { return wordsOfHelp(key); }, sheet);
    find->setObjectName(QStringLiteral("find"));
    auto* findLabel = new QLabel(tr("Fi&nd:"), sheet);
    findLabel->setBuddy(find);
    tabs_ = new QListWidget(sheet);
    tabs_->setObjectName(QStringLiteral("tabs"));
    tabs_->setAccessibleName(tr("Styles"));
    tabs_->setSizeAdjustPolicy(QAbstractItemView::AdjustToContents);
    tabs_->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    stack_ = new QStackedWidget(sheet);
    for (const auto& page : model_.sheet().pages()) addPage(*page);
    tabs_->setSpacing(tabs_->fontMetrics().height() / 8);
    // A page with changes stands in bold letters, which must not widen the list.
    QFont bold = tabs_->font();
    bold.setBold(true);
    for (int tab = 0; tab < tabs_->count(); ++tab) tabs_->item(tab)->setFont(bold);
    tabs_->setMinimumWidth(tabs_->sizeHint().width());

    auto* findRow = new QHBoxLayout;
    findRow->addWidget(findLabel);
    findRow->addWidget(find, 1);
    auto* panes = new QHBoxLayout;
    panes->addWidget(tabs_);
    panes->addWidget(stack_, 1);
    auto* column = new QVBoxLayout(sheet);
    // Room between the pages and the preview.
    column->setContentsMargins(0, 0, findRow->spacing(), 0);
    column->addLayout(findRow);
    column->addLayout(panes, 1);
    connect(tabs_, &QListWidget::currentRowChanged, this, [this](int row) { showPage(static_cast<std::size_t>(row)); });
    connect(find, &PropertySearchField::chosen, this, [this](const QString& key) { showProperty(fromQt(key)); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, find, [find] {
        find->setFocus(Qt::ShortcutFocusReason);
        find->selectAll();
    });
    return sheet;
}

// Without the examples, whose code has words of its own.
std::string StylesDlg::wordsOfHelp(std::string_view key) const {
    const PropertyHelp* help = help_.find(key);
    if (!help) return {};
    std::string words = help->title + '\n' + help->shortText;
    for (const std::string& paragraph : help->paragraphs) words += '\n' + paragraph;
    return words;
}

void StylesDlg::addPage(StylesBasePage& page) {
    const auto helpOf = [this](std::string_view key) {
        return FieldHelp{toQt(help_.shortText(key)), toQt(help_.whatsThis(key))};
    };
    auto* view = new StylesPageView(page, helpOf);
    view->setObjectName(toQt(page.info().className));
    view->setAccessibleName(translatedPlain(page.title()));
    connect(view, &StylesPageView::edited, this, &StylesDlg::tellRefusal);
    views_.push_back(view);
    stack_->addWidget(new PageScroller(view, stack_));
    tabs_->addItem(translatedPlain(page.title()));
}

QLayout* StylesDlg::makeButtonRow() {
    previewButton_ = new QPushButton(this);
    previewButton_->setObjectName(QStringLiteral("togglePreview"));
    auto* buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    buttons->button(QDialogButtonBox::Help)->setText(tr("&Help"));
    auto* row = new QHBoxLayout;
    row->addWidget(previewButton_);
    row->addWidget(buttons, 1);
    connect(previewButton_, &QPushButton::clicked, this, [this] { showPreview(preview_->isHidden()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &StylesDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &StylesDlg::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this, &StylesDlg::askForHelp);
    return row;
}

void StylesDlg::addShortcuts() {
    const auto step = [this](int by) {
        const int count = tabs_->count();
        showPage(static_cast<std::size_t>((tabs_->currentRow() + by + count) % count));
    };
    connect(new QShortcut(Qt::CTRL | Qt::Key_PageDown, this), &QShortcut::activated, this, [=] { step(1); });
    connect(new QShortcut(Qt::CTRL | Qt::Key_PageUp, this), &QShortcut::activated, this, [=] { step(-1); });
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this, &StylesDlg::askForHelp);
}

}  // namespace BrevisUI
