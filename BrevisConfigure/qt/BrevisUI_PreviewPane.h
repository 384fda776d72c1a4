// The preview of the scheme editor: what the working scheme makes of the sample of the active page, or of a file of the
// user's, and beside it, if the user likes, the text as it was.
#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "editor/BrevisUI_StylesDlgModel.h"
#include "qt/BrevisUI_Dialogs.h"
#include "settings/BrevisUI_EditorSettings.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace BrevisUI {

class CodeView;

class PreviewPane : public QWidget {
    Q_OBJECT

public:
    // All references must outlive the pane.
    PreviewPane(const StylesDlgModel& model, const PreviewFont& font, Dialogs& dialogs, QWidget* parent = nullptr);

    // Formats and shows the text anew, and marks what has moved since the last time, if that was the same text.
    void redraw();
    // Another scheme has come: nothing has moved when it is shown.
    void forgetMoves();

    // The file takes the place of the samples until showSample. A file that can't be read is told.
    void showOwnFile(const std::string& path);
    void showSample();

private:
    struct OwnFile {
        std::string path, text;
    };

    void chooseOwnFile();
    void showTabSize(std::optional<std::int32_t> tabSize);
    void show(const std::string& before, const std::string& after, bool isCode);
    void redrawOwnFile();

    const StylesDlgModel& model_;
    Dialogs& dialogs_;
    QLabel* source_;
    QLabel* status_;
    QPushButton* sampleButton_;
    QCheckBox* originalSwitch_;
    CodeView* original_;
    CodeView* formatted_;

    std::optional<OwnFile> ownFile_;
    // What was shown last: moves can be told only between two forms of one text.
    std::string lastBefore_, lastAfter_;
};

}  // namespace BrevisUI
