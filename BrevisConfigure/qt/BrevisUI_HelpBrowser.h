// The pane of the help window that shows a page. It takes pages from a library instead of files, and its colours from
// the palette in force, so that it can be read in light and dark alike.
#pragma once

#include <QTextBrowser>

#include "help/BrevisUI_HelpLibrary.h"

namespace BrevisUI {

class HelpBrowser : public QTextBrowser {
    Q_OBJECT

public:
    // The library must outlive the browser.
    explicit HelpBrowser(const HelpLibrary& library, QWidget* parent = nullptr);

    // Shows a page, at an anchor if the topic has one: "Classes.htm#WS_AFTER_CLASS_NAME". False, and nothing changes,
    // if there is no such page.
    bool openTopic(std::string_view topic);
    // The name of the page shown, without an anchor; empty before the first.
    std::string page() const;

    QVariant loadResource(int type, const QUrl& name) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void followPalette();

    const HelpLibrary& library_;
};

}  // namespace BrevisUI
