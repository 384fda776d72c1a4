// Boxes, file dialogs and the start of an editor.
#include "qt/BrevisUI_SystemDialogs.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QMessageBox>
#include <QProcess>
#include <QUrl>

#include "BrevisUI_EditorCommand.h"
#include "BrevisUI_Files.h"
#include "qt/BrevisUI_Text.h"

namespace BrevisUI {

namespace {

QString title() { return QCoreApplication::translate("BrevisUI::SystemDialogs", "Corvane C++"); }

// A box whose text is shown as it stands: a path in it is never taken for markup.
QMessageBox::StandardButton showBox(QWidget* parent, QMessageBox::Icon icon, std::string_view text,
                                    QMessageBox::StandardButtons buttons, QMessageBox::StandardButton escape) {
    QMessageBox box(icon, title(), toQt(text), buttons, parent);
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(escape);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

QMessageBox::Icon iconOf(Dialogs::Icon icon) {
    switch (icon) {
        case Dialogs::Icon::Stop:
            return QMessageBox::Critical;
        case Dialogs::Icon::Warning:
            return QMessageBox::Warning;
        default:
            return QMessageBox::Information;
    }
}

}  // namespace

QStringList filterRows(std::string_view filter) {
    const QStringList fields = toQt(filter).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    QStringList rows;
    for (qsizetype i = 0; i + 1 < fields.size(); i += 2) {
        QString patterns = fields[i + 1];
        patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
        const QString name = fields[i].section(QLatin1String(" ("), 0, 0);
        rows.append(name + QLatin1String(" (") + patterns + QLatin1Char(')'));
    }
    return rows;
}

void SystemDialogs::tell(QWidget* parent, Icon icon, std::string_view text) {
    showBox(parent, iconOf(icon), text, QMessageBox::Ok, QMessageBox::Ok);
}

Answer SystemDialogs::ask(QWidget* parent, std::string_view question) {
    const auto buttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    switch (showBox(parent, QMessageBox::Question, question, buttons, QMessageBox::Cancel)) {
        case QMessageBox::Yes:
            return Answer::Yes;
        case QMessageBox::No:
            return Answer::No;
        default:
            return Answer::Cancel;
    }
}

bool SystemDialogs::confirm(QWidget* parent, std::string_view question) {
    return showBox(parent, QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

std::vector<std::string> SystemDialogs::chooseFiles(QWidget* parent, const FileChoice& choice) {
    QFileDialog dialog(parent, QString(), pathToQt(choice.directory));
    dialog.setFileMode(choice.several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    QStringList filters = filterRows(choice.filter) + filterRows(choice.laterFilter);
    // A file with another extension can be chosen too; the command asks about it.
    filters.append(QCoreApplication::translate("BrevisUI::SystemDialogs", "All Files (*)"));
    dialog.setNameFilters(filters);
    std::vector<std::string> paths;
    if (dialog.exec() != QDialog::Accepted) return paths;
    for (const QString& path : dialog.selectedFiles()) paths.push_back(pathFromQt(path));
    return paths;
}

std::optional<std::string> SystemDialogs::chooseFolder(QWidget* parent, std::string_view title,
                                                       const std::string& directory) {
    const QString path = QFileDialog::getExistingDirectory(parent, toQt(title), pathToQt(directory));
    return path.isEmpty() ? std::nullopt : std::optional(pathFromQt(path));
}

std::optional<std::string> SystemDialogs::chooseNewFile(QWidget* parent, std::string_view filter,
                                                        const std::string& path) {
    const QString chosen =
        QFileDialog::getSaveFileName(parent, QString(), pathToQt(path), filterRows(filter).join(QLatin1String(";;")));
    return chosen.isEmpty() ? std::nullopt : std::optional(pathFromQt(chosen));
}

void SystemDialogs::openInEditor(QWidget* /*parent*/, const MessagePlace& place, const std::string& editor) {
    if (!isDirectory(place.path)) {
        QByteArray environment = qgetenv("VISUAL");
        if (environment.isEmpty()) environment = qgetenv("EDITOR");
        QStringList words;
        for (const std::string& word : editorCommand(editor, environment.toStdString(), place)) {
            words.append(pathToQt(word));
        }
        if (!words.isEmpty() && QProcess::startDetached(words.takeFirst(), words)) return;
    }
    QDesktopServices::openUrl(QUrl::fromLocalFile(pathToQt(place.path)));
}

}  // namespace BrevisUI
