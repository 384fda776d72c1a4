// What windows ask of the system around them: boxes, questions, the choice of files, and an editor. An interface, so
// that a test can answer them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "BrevisUI_MessagePlace.h"
#include "batch/BrevisUI_BatchHost.h"

class QWidget;

namespace BrevisUI {

class Dialogs {
public:
    virtual ~Dialogs() = default;

    // The icon of a box.
    enum class Icon { Information, Warning, Stop };

    // A text with the button OK. Paths in it may be no UTF-8.
    virtual void tell(QWidget* parent, Icon icon, std::string_view text) = 0;
    // A question with the buttons yes, no and cancel; closing it is cancel.
    virtual Answer ask(QWidget* parent, std::string_view question) = 0;
    // A question with the buttons yes and no; closing it is no.
    virtual bool confirm(QWidget* parent, std::string_view question) = 0;

    // As BatchHost has them.
    virtual std::vector<std::string> chooseFiles(QWidget* parent, const FileChoice& choice) = 0;
    virtual std::optional<std::string> chooseFolder(QWidget* parent, std::string_view title,
                                                    const std::string& directory) = 0;
    // The path of a file to write, which the dialog has asked about if there is one. `path` is what it proposes, and
    // `filter` has the form of that of a FileChoice.
    virtual std::optional<std::string> chooseNewFile(QWidget* parent, std::string_view filter,
                                                     const std::string& path) = 0;

    // Shows the file or directory at the place. `editor` is the user's command for it, in the form of editorCommand;
    // it may be empty.
    virtual void openInEditor(QWidget* parent, const MessagePlace& place, const std::string& editor) = 0;
};

}  // namespace BrevisUI
