// The dialogs of the system as the toolkit shows them.
#pragma once

#include <QStringList>

#include "qt/BrevisUI_Dialogs.h"

namespace BrevisUI {

class SystemDialogs : public Dialogs {
public:
    void tell(QWidget* parent, Icon icon, std::string_view text) override;
    Answer ask(QWidget* parent, std::string_view question) override;
    bool confirm(QWidget* parent, std::string_view question) override;
    std::vector<std::string> chooseFiles(QWidget* parent, const FileChoice& choice) override;
    std::optional<std::string> chooseFolder(QWidget* parent, std::string_view title,
                                            const std::string& directory) override;
    std::optional<std::string> chooseNewFile(QWidget* parent, std::string_view filter,
                                             const std::string& path) override;
    void openInEditor(QWidget* parent, const MessagePlace& place, const std::string& editor) override;
};

// The rows of a filter in the form of BrevisUI::Filter, as the toolkit wants them: "C++ Source Files (*.c *.h)".
QStringList filterRows(std::string_view filter);

}  // namespace BrevisUI
