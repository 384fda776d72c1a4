// The controls that show one field of a page and let the user change it. It knows no key and no rule: what a change
// means, and what then stands where, is told by the page.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QToolButton>

#include "editor/BrevisUI_StylesBasePage.h"

namespace BrevisUI {

class FieldControl : public QObject {
    Q_OBJECT

public:
    // The right kind for the field. The page and the field, which is one of the page, must outlive it; `parent` is the
    // window of the page.
    static FieldControl* make(StylesBasePage& page, const PageField& field, QWidget* parent);

    const PageField& field() const { return field_; }
    // In front of the editor; null where the editor or the switch bears the label itself.
    QLabel* label() const { return label_; }
    // What stands in front of the editor: the label, or the switch of a field that has one; null where nothing does.
    QWidget* head() const;
    QWidget* editor() const { return editor_; }
    // Puts the value back to what the store has; it can be seen only where that would change something.
    QToolButton* setBackButton() const { return setBackButton_; }

    // Takes the other control in beside the part of this one that already says what it is for, such as the radio button
    // "Indent by". False if there is none.
    virtual bool takeIn(FieldControl&) { return false; }
    // Shows what the field holds now.
    void refresh();
    // The texts of the help on the property.
    void setHelp(const QString& toolTip, const QString& whatsThis);
    void takeFocus();
    // Makes the control stand out, so that an eye finds it.
    void setHighlighted(bool isHighlighted);

Q_SIGNALS:
    // The user has changed it, and the page has taken or refused the change.
    void edited(const BrevisUI::ChangeResult& result);

protected:
    FieldControl(StylesBasePage& page, const PageField& field, QWidget* parent);

    // For the constructors of the kinds: an editor that bears its label itself, and one that needs a label or a switch.
    void setParts(QWidget* editor, QWidget* focus);
    void setLabelledParts(QWidget* editor, QWidget* focus);
    virtual void showValue() = 0;
    // The label where it may change, and the names for those who can't see.
    virtual void showLabel();
    StylesBasePage& page() { return page_; }
    QString labelText() const;

private:
    void setBack();

    StylesBasePage& page_;
    const PageField& field_;
    QLabel* label_ = nullptr;
    QCheckBox* switch_ = nullptr;  // says whether the scheme has the key; bears the label
    QWidget* editor_ = nullptr;
    QWidget* focus_ = nullptr;
    QToolButton* setBackButton_;
};

}  // namespace BrevisUI
