// The controls of the Options dialog.
#include "qt/BrevisUI_OptionsDlg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "help/BrevisUI_HelpSection.h"
#include "qt/BrevisUI_StylesDlg.h"
#include "qt/BrevisUI_Text.h"
#include "settings/BrevisUI_Extensions.h"

namespace BrevisUI {

namespace {

constexpr int fieldWidthInCharacters = 45;

QString helpTopic() { return QStringLiteral("Options.htm"); }

// A threshold above the highest hides nothing, as the lowest but "never" does.
int rowOfThreshold(std::uint32_t threshold) {
    return threshold < std::size(thresholdLabels) ? static_cast<int>(threshold) : 1;
}

}  // namespace

OptionsDlg::OptionsDlg(const ProgramState& state, SettingsFile& settings, EditorMemory& memory, Dialogs& dialogs,
                       QWidget* parent)
    : QDialog(parent),
      model_(state),
      settings_(settings),
      memory_(memory),
      dialogs_(dialogs),
      scheme_(new QComboBox),
      manage_(new QPushButton(tr("&Manage Schemes..."))),
      extensions_(new QLineEdit(toQt(model_.extensions))),
      createBackups_(new QCheckBox(tr("Create &backup before formatting"))),
      backupLabel_(new QLabel(tr("Backup file e&xtension:"))),
      backupExtension_(new QLineEdit(toQt(model_.backupExtension))),
      threshold_(new QComboBox) {
    setWindowTitle(tr("Corvane C++ Options"));
    // The help can be read beside it.
    setWindowModality(Qt::WindowModal);
    fillSchemes();
    createBackups_->setChecked(model_.createBackups);
    for (const std::string_view label : thresholdLabels) threshold_->addItem(toQt(label));
    threshold_->setCurrentIndex(rowOfThreshold(model_.threshold));
    layOut();

    const auto enableExtension = [this](bool isOn) {
        backupExtension_->setEnabled(isOn);
        backupLabel_->setEnabled(isOn);
    };
    connect(createBackups_, &QCheckBox::toggled, this, enableExtension);
    enableExtension(model_.createBackups);
    // Only a row that was chosen counts: a threshold that has no row of its own stays otherwise.
    connect(threshold_, &QComboBox::activated, this,
            [this](int row) { model_.threshold = static_cast<unsigned>(row); });
}

void OptionsDlg::layOut() {
    auto* const form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    layOutSchemes(*form);
    layOutFiles(*form);
    form->addRow(tr("&Display messages of severity:"), threshold_);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    auto* const help = buttons->addButton(tr("&Help"), QDialogButtonBox::HelpRole);
    help->setShortcut(QKeySequence::HelpContents);
    connect(buttons, &QDialogButtonBox::accepted, this, &OptionsDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &OptionsDlg::reject);
    connect(help, &QPushButton::clicked, this, [this] { Q_EMIT helpRequested(helpTopic()); });

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addStretch();
    layout->addWidget(buttons);
    resize(sizeHint());
}

void OptionsDlg::layOutSchemes(QFormLayout& form) {
    manage_->setAutoDefault(false);
    connect(manage_, &QPushButton::clicked, this, &OptionsDlg::manageSchemes);
    auto* const row = new QHBoxLayout;
    row->addWidget(scheme_, 1);
    row->addWidget(manage_);
    auto* const label = new QLabel(tr("Formatting &scheme:"));
    label->setBuddy(scheme_);
    scheme_->setAccessibleName(tr("Formatting scheme"));
    form.addRow(label, row);
}

void OptionsDlg::layOutFiles(QFormLayout& form) {
    extensions_->setMinimumWidth(fontMetrics().averageCharWidth() * fieldWidthInCharacters);
    form.addRow(tr("&File extensions to format:"), extensions_);
    form.addRow(createBackups_);
    backupLabel_->setBuddy(backupExtension_);
    form.addRow(backupLabel_, backupExtension_);
    extensions_->setAccessibleName(tr("File extensions to format"));
    backupExtension_->setAccessibleName(tr("Backup file extension"));
    threshold_->setAccessibleName(tr("Display messages of severity"));
}

void OptionsDlg::explainFrom(const HelpLibrary& help) {
    const HelpPage* const page = help.page(fromQt(helpTopic()));
    if (!page) return;
    const std::pair<QWidget*, std::string_view> controls[] = {
        {scheme_, "Formatting scheme"},
        {manage_, "Manage Schemes..."},
        {extensions_, "File extensions to format"},
        {createBackups_, "Create backup before formatting"},
        {backupExtension_, "Backup file extension"},
        {threshold_, "Display messages of severity"},
    };
    for (const auto& [control, title] : controls) {
        const QString text = toQt(helpSection(page->html, title));
        control->setToolTip(text);
        control->setWhatsThis(text);
    }
}

void OptionsDlg::fillSchemes() {
    scheme_->clear();
    for (const std::string& row : model_.schemeRows()) scheme_->addItem(toQt(row));
    scheme_->setCurrentIndex(static_cast<int>(model_.schemeRow()));
}

void OptionsDlg::fetchControls() {
    model_.chooseSchemeRow(static_cast<std::size_t>(scheme_->currentIndex()));
    model_.extensions = fromQt(extensions_->text());
    model_.createBackups = createBackups_->isChecked();
    model_.backupExtension = fromQt(backupExtension_->text());
}

void OptionsDlg::manageSchemes() {
    fetchControls();
    StylesDlg editor(model_.store(), settings_, memory_, dialogs_, this);
    editor.setWindowModality(Qt::WindowModal);
    connect(&editor, &StylesDlg::helpRequested, this, &OptionsDlg::helpRequested);
    if (editor.exec() != QDialog::Accepted) return;
    model_.takeStore(editor.store());
    fillSchemes();
    if (const std::string_view warning = settings_.save(); !warning.empty()) {
        dialogs_.tell(this, Dialogs::Icon::Warning, warning);
    }
}

void OptionsDlg::accept() {
    fetchControls();
    const std::string_view fault = model_.fault();
    if (fault.empty()) return QDialog::accept();
    dialogs_.tell(this, Dialogs::Icon::Warning, fault);
    QLineEdit* const field = isValidExtension(model_.backupExtension) ? extensions_ : backupExtension_;
    field->setFocus();
    field->selectAll();
}

}  // namespace BrevisUI
