// The field that finds properties while the user types, and a list below it to choose from.
#pragma once

#include <QLineEdit>
#include <vector>

#include "editor/BrevisUI_PropertySearch.h"

class QCompleter;
class QStandardItemModel;

namespace BrevisUI {

class PropertySearchField : public QLineEdit {
    Q_OBJECT

public:
    explicit PropertySearchField(HelpOf helpOf, QWidget* parent = nullptr);

Q_SIGNALS:
    // The user wants to go to the control of this property.
    void chosen(const QString& key);

protected:
    // Enter goes to the find that stands out in the list, or the first, and Escape empties the field; only then do they
    // mean the dialog.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void find(const QString& query);
    void choose();

    HelpOf helpOf_;
    QStandardItemModel* found_;
    QCompleter* list_;
};

}  // namespace BrevisUI
