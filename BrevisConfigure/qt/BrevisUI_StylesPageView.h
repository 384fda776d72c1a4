// One page of the scheme editor on the screen: the controls of its fields in their groups.
#pragma once

#include <QWidget>
#include <functional>
#include <string_view>
#include <vector>

#include "editor/BrevisUI_StylesBasePage.h"

class QGridLayout;
class QVBoxLayout;

namespace BrevisUI {

class FieldControl;

// The texts of the help on a property.
struct FieldHelp {
    QString toolTip, whatsThis;
};

class StylesPageView : public QWidget {
    Q_OBJECT

public:
    using HelpOf = std::function<FieldHelp(std::string_view key)>;

    // The page must outlive the view.
    StylesPageView(StylesBasePage& page, const HelpOf& helpOf, QWidget* parent = nullptr);

    StylesBasePage& page() { return page_; }
    // Shows what the fields hold now.
    void refresh();
    // Null for a key without a control here.
    FieldControl* control(std::string_view key) const;
    // Whether a field holds another value than the store has.
    bool isChanged() const;

Q_SIGNALS:
    void edited(const BrevisUI::ChangeResult& result);

private:
    void addGroup(QVBoxLayout* column, const std::vector<FieldControl*>& group);
    void addRow(QGridLayout* grid, FieldControl* control);
    void alignEditors();

    StylesBasePage& page_;
    std::vector<FieldControl*> controls_;
};

}  // namespace BrevisUI
