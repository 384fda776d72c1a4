// The kinds of controls, one a kind of field.
#include "qt/BrevisUI_FieldControl.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <algorithm>

#include "qt/BrevisUI_Tint.h"
#include "qt/BrevisUI_Translated.h"

namespace BrevisUI {

namespace {

// A number that the user can type or step through.
QSpinBox* makeNumberBox(const PageField& field, QWidget* parent) {
    auto* box = new QSpinBox(parent);
    box->setRange(field.least, field.most);
    return box;
}

// Shows a value without telling that it has changed.
void showNumber(QSpinBox* box, int number) {
    const QSignalBlocker blocker(box);
    if (box->value() != number) box->setValue(number);
}

class TextControl : public FieldControl {
public:
    TextControl(StylesBasePage& page, const PageField& field, QWidget* parent)
        : FieldControl(page, field, parent), edit_(new QLineEdit(parent)) {
        setLabelledParts(edit_, edit_);
        connect(edit_, &QLineEdit::textEdited, this, [this](const QString& text) {
            Q_EMIT edited(this->page().enterText(this->field().key(), fromQt(text)));
        });
        connect(edit_, &QLineEdit::editingFinished, this, [this] { showEntry(); });
    }

protected:
    // Half-typed, such as a lone backslash, the text may stand for the value without being the form of it. It isn't
    // taken from under the hands of whoever types.
    void showValue() override {
        const bool isEmptied = field().value.isAbsent && !edit_->hasFocus();
        if (isEmptied || field().refusedEntry || field().read(fromQt(edit_->text())) != field().value.text) showEntry();
        edit_->setPlaceholderText(field().hasSwitch && field().value.isAbsent ? tr("not set") : QString());
    }

private:
    void showEntry() {
        const QString entry = toQt(field().entry());
        if (edit_->text() != entry) edit_->setText(entry);
    }

    QLineEdit* edit_;
};

class IndentControl : public FieldControl {
public:
    IndentControl(StylesBasePage& page, const PageField& field, QWidget* parent)
        : FieldControl(page, field, parent), number_(makeNumberBox(field, parent)), unit_(new QComboBox(parent)) {
        for (const std::string_view unit : indentUnitLabels) unit_->addItem(translated(unit));
        auto* pair = new QWidget(parent);
        auto* row = new QHBoxLayout(pair);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(number_);
        row->addWidget(unit_);
        row->addStretch();
        setLabelledParts(pair, number_);
        connect(number_, &QSpinBox::valueChanged, this, [this] { change(); });
        connect(unit_, &QComboBox::activated, this, [this] { change(); });
    }

protected:
    void showValue() override {
        showNumber(number_, field().value.indent.number);
        // No blank and no tab are the same text, so the unit that the user has chosen stays until there is a number.
        if (field().value.indent.number > 0 || !unit_->hasFocus()) {
            unit_->setCurrentIndex(static_cast<int>(field().value.indent.unit));
        }
    }
    void showLabel() override {
        FieldControl::showLabel();
        number_->setAccessibleName(labelText());
        unit_->setAccessibleName(tr("Unit of: %1").arg(labelText()));
    }

private:
    void change() {
        const IndentEntry entry{number_->value(), static_cast<IndentUnit>(unit_->currentIndex())};
        Q_EMIT edited(page().setIndent(field().key(), entry));
    }

    QSpinBox* number_;
    QComboBox* unit_;
};

class FlagControl : public FieldControl {
public:
    FlagControl(StylesBasePage& page, const PageField& field, QWidget* parent)
        : FieldControl(page, field, parent), box_(new QCheckBox(parent)) {
        setParts(box_, box_);
        connect(box_, &QCheckBox::clicked, this,
                [this](bool isOn) { Q_EMIT edited(this->page().setChecked(this->field().key(), isOn)); });
    }

protected:
    void showValue() override { box_->setChecked(field().value.isChecked); }
    void showLabel() override {
        FieldControl::showLabel();
        box_->setText(translated(field().label));
    }

private:
    QCheckBox* box_;
};

class NumberControl : public FieldControl {
public:
    NumberControl(StylesBasePage& page, const PageField& field, QWidget* parent)
        : FieldControl(page, field, parent), box_(makeNumberBox(field, parent)) {
        auto* row = new QWidget(parent);
        auto* layout = new QHBoxLayout(row);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(box_);
        layout->addStretch();
        setLabelledParts(row, box_);
        connect(box_, &QSpinBox::valueChanged, this,
                [this](int number) { Q_EMIT edited(this->page().setNumber(this->field().key(), number)); });
    }

protected:
    void showValue() override { showNumber(box_, field().value.number); }
    void showLabel() override {
        FieldControl::showLabel();
        box_->setAccessibleName(labelText());
    }

private:
    QSpinBox* box_;
};

class ChoiceControl : public FieldControl {
public:
    ChoiceControl(StylesBasePage& page, const PageField& field, QWidget* parent)
        : FieldControl(page, field, parent), group_(new QButtonGroup(this)) {
        auto* column = new QWidget(parent);
        rows_ = new QGridLayout(column);
        rows_->setContentsMargins(0, 0, 0, 0);
        rows_->setColumnStretch(1, 1);
        for (std::size_t i = 0; i < field.choices.size(); ++i) {
            auto* button = new QRadioButton(translated(field.choices[i]), column);
            // Heard alone, "Typename" says little.
            button->setAccessibleDescription(labelText());
            rows_->addWidget(button, static_cast<int>(i), 0, 1, 2);
            group_->addButton(button, static_cast<int>(i));
        }
        setParts(column, group_->button(0));
        connect(group_, &QButtonGroup::idClicked, this, [this](int choice) {
            Q_EMIT edited(this->page().select(this->field().key(), static_cast<std::size_t>(choice)));
        });
    }

    bool takeIn(FieldControl& other) override {
        const auto& choices = field().choices;
        const auto same = std::find(choices.begin(), choices.end(), other.field().label);
        if (same == choices.end() || !other.label()) return false;
        const int row = static_cast<int>(same - choices.begin());
        other.label()->hide();
        // Moved to where the button's row is, the parts follow it in the order of tabs too.
        rows_->addWidget(group_->button(row), row, 0);
        rows_->addWidget(other.editor(), row, 1);
        rows_->addWidget(other.setBackButton(), row, 2);
        QWidget::setTabOrder(group_->button(row), other.editor());
        return true;
    }

protected:
    void showValue() override {
        // A group that has to have a selected button can't be cleared.
        group_->setExclusive(false);
        for (QAbstractButton* button : group_->buttons()) {
            const auto choice = static_cast<std::size_t>(group_->id(button));
            button->setChecked(field().value.selected == choice);
        }
        group_->setExclusive(true);
    }

private:
    QButtonGroup* group_;
    QGridLayout* rows_;
};

}  // namespace

FieldControl* FieldControl::make(StylesBasePage& page, const PageField& field, QWidget* parent) {
    switch (field.kind) {
        case FieldKind::WhiteSpace:
        case FieldKind::Names:
            return new TextControl(page, field, parent);
        case FieldKind::Indent:
            return new IndentControl(page, field, parent);
        case FieldKind::Flag:
            return new FlagControl(page, field, parent);
        case FieldKind::Number:
            return new NumberControl(page, field, parent);
        default:
            return new ChoiceControl(page, field, parent);
    }
}

FieldControl::FieldControl(StylesBasePage& page, const PageField& field, QWidget* parent)
    : QObject(parent), page_(page), field_(field), setBackButton_(new QToolButton(parent)) {
    setBackButton_->setText(QStringLiteral("\u21ba"));
    setBackButton_->setAutoRaise(true);
    setBackButton_->setFocusPolicy(Qt::TabFocus);
    QSizePolicy policy = setBackButton_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setBackButton_->setSizePolicy(policy);
    connect(setBackButton_, &QToolButton::clicked, this, [this] { setBack(); });
}

void FieldControl::setLabelledParts(QWidget* editor, QWidget* focus) {
    if (field_.hasSwitch) {
        switch_ = new QCheckBox(editor->parentWidget());
        switch_->setObjectName(toQt(field_.key()) + QLatin1String(".set"));
        connect(switch_, &QCheckBox::clicked, this,
                [this](bool isOn) { Q_EMIT edited(page_.setPresent(field_.key(), isOn)); });
        QWidget::setTabOrder(switch_, focus);
    } else {
        label_ = new QLabel(editor->parentWidget());
        label_->setBuddy(focus);
    }
    setParts(editor, focus);
}

QWidget* FieldControl::head() const { return switch_ ? static_cast<QWidget*>(switch_) : label_; }

void FieldControl::setParts(QWidget* editor, QWidget* focus) {
    editor_ = editor;
    focus_ = focus;
    const QString name = toQt(field_.key());
    focus_->setObjectName(name);
    setBackButton_->setObjectName(name + QLatin1String(".back"));
}

QString FieldControl::labelText() const { return bareLabel(field_.label); }

void FieldControl::refresh() {
    showLabel();
    showValue();
    const bool isSet = !switch_ || !field_.value.isAbsent;
    editor_->setEnabled(field_.isEnabled && isSet);
    if (switch_) switch_->setChecked(isSet);
    if (head()) head()->setEnabled(field_.isEnabled);
    setBackButton_->setVisible(page_.isChanged(field_.key()));
}

void FieldControl::showLabel() {
    if (label_) label_->setText(translated(field_.label));
    if (switch_) switch_->setText(translated(field_.label));
    focus_->setAccessibleName(labelText());
    const QString text = tr("Changed. Set back to the saved value: %1").arg(labelText());
    setBackButton_->setAccessibleName(text);
    setBackButton_->setToolTip(text);
}

void FieldControl::setHelp(const QString& toolTip, const QString& whatsThis) {
    for (QWidget* widget : {head(), editor_, focus_}) {
        if (!widget) continue;
        widget->setToolTip(toolTip);
        widget->setWhatsThis(whatsThis);
    }
}

void FieldControl::takeFocus() {
    QWidget* const target = switch_ && !switch_->isChecked() ? switch_ : focus_;
    target->setFocus(Qt::ShortcutFocusReason);
}

void FieldControl::setHighlighted(bool isHighlighted) {
    QWidget* shown = head() ? head() : editor_;
    QPalette palette;
    if (isHighlighted) {
        palette = shown->palette();
        constexpr int yellow = 48;
        palette.setColor(shown->backgroundRole(), washFor(palette, yellow));
    }
    shown->setPalette(palette);
    shown->setAutoFillBackground(isHighlighted);
}

void FieldControl::setBack() {
    const ChangeResult result = page_.setBack(field_.key());
    refresh();
    takeFocus();
    Q_EMIT edited(result);
}

}  // namespace BrevisUI
