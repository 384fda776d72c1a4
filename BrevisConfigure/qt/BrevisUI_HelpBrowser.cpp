// Addresses are "help:/PAGE#ANCHOR", so that links of the pages, which are relative, lead from page to page.
#include "qt/BrevisUI_HelpBrowser.h"

#include <QEvent>
#include <QScrollBar>

#include "qt/BrevisUI_Text.h"

namespace BrevisUI {

namespace {

QColor mixed(const QColor& background, const QColor& text, qreal share) {
    const auto mix = [&](qreal a, qreal b) { return a + (b - a) * share; };
    return QColor::fromRgbF(static_cast<float>(mix(background.redF(), text.redF())),
                            static_cast<float>(mix(background.greenF(), text.greenF())),
                            static_cast<float>(mix(background.blueF(), text.blueF())));
}

}  // namespace

HelpBrowser::HelpBrowser(const HelpLibrary& library, QWidget* parent) : QTextBrowser(parent), library_(library) {
    setOpenExternalLinks(true);
    setAccessibleName(tr("Help page"));
    document()->setDocumentMargin(12);
    followPalette();
}

bool HelpBrowser::openTopic(std::string_view topic) {
    if (!library_.page(topic.substr(0, topic.find('#')))) return false;
    setSource(QUrl(QStringLiteral("help:/") + toQt(topic)), QTextDocument::HtmlResource);
    return true;
}

std::string HelpBrowser::page() const { return fromQt(source().fileName()); }

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    const HelpPage* page = library_.page(fromQt(name.fileName()));
    if (type != QTextDocument::HtmlResource || !page) return {};
    return toQt("<html><body>" + page->html + "</body></html>");
}

void HelpBrowser::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) followPalette();
}

void HelpBrowser::followPalette() {
    const QPalette& colours = palette();
    const QColor base = colours.color(QPalette::Base), text = colours.color(QPalette::Text);
    const QString sheet = QStringLiteral(
        "td.code, pre { background-color: %1; }"
        "th { color: %2; font-weight: normal; }"
        "p.key, p.settings { color: %2; }"
        "a { color: %3; text-decoration: none; }"
        "h1 { font-size: x-large; } h2 { font-size: large; } h3 { font-size: medium; margin-top: 18px; }"
        "pre { margin: 0px; }");
    document()->setDefaultStyleSheet(
        sheet.arg(mixed(base, text, 0.08).name(), mixed(base, text, 0.7).name(), colours.color(QPalette::Link).name()));
    if (source().isEmpty()) return;
    // A style sheet counts only for what is set behind it.
    const int place = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(place);
}

}  // namespace BrevisUI
