// Draws the windows of the desktop program, or those that are named, as PNG files, on a platform without a screen.
// QT_SCALE_FACTOR makes the pictures larger.
#include <QCommandLineParser>
#include <QDir>
#include <QEventLoop>
#include <QPalette>
#include <QStyleFactory>
#include <QTextStream>
#include <QTimer>

#include "Scenes.h"
#include "qt/BrevisUI_Application.h"

namespace {

constexpr int delay = 50;  // milliseconds

QPalette darkPalette() {
    QPalette palette(QColor(0x35, 0x36, 0x3a), QColor(0x2b, 0x2c, 0x30));
    palette.setColor(QPalette::Base, QColor(0x1f, 0x20, 0x23));
    palette.setColor(QPalette::AlternateBase, QColor(0x27, 0x28, 0x2c));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x6f, 0xb5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x7a, 0xb4, 0xf5));
    palette.setColor(QPalette::ToolTipBase, QColor(0x44, 0x45, 0x4a));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    return palette;
}

bool draw(const Screenshots::Scene& scene, const QString& path) {
    Screenshots::Stage stage;
    const std::unique_ptr<QWidget> window = scene.make(stage);
    window->show();
    // What changes often is drawn with a delay.
    QEventLoop wait;
    QTimer::singleShot(delay, &wait, &QEventLoop::quit);
    wait.exec();
    return window->grab().save(path);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    BrevisUI::Application application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("dark"), QStringLiteral("With a dark palette.")});
    parser.addOption({QStringLiteral("suffix"), QStringLiteral("Put behind each name."), QStringLiteral("text")});
    parser.addPositionalArgument(QStringLiteral("directory"), QStringLiteral("Where the pictures go."));
    parser.addPositionalArgument(QStringLiteral("names"), QStringLiteral("The windows; all of them without a name."));
    parser.process(application);
    QStringList names = parser.positionalArguments();
    if (names.isEmpty()) parser.showHelp(2);
    const QDir directory(names.takeFirst());
    if (parser.isSet(QStringLiteral("dark"))) QApplication::setPalette(darkPalette());

    for (const Screenshots::Scene& scene : Screenshots::scenes()) {
        const QString name = QString::fromStdString(scene.name);
        if (!names.isEmpty() && !names.contains(name)) continue;
        const QString path = directory.filePath(name + parser.value(QStringLiteral("suffix")) + QStringLiteral(".png"));
        if (!draw(scene, path)) {
            QTextStream(stderr) << "cannot write " << path << '\n';
            return 1;
        }
    }
    return 0;
}
