// Texts between the toolkit, which has characters, and the rest of the program, which has bytes in UTF-8. Paths are
// bytes that may be no UTF-8 at all; they go through the file name coding of the system.
#pragma once

#include <QFile>
#include <QString>
#include <string>
#include <string_view>

namespace BrevisUI {

inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string fromQt(const QString& text) { return text.toStdString(); }

inline QString pathToQt(const std::string& path) { return QFile::decodeName(path.c_str()); }
inline std::string pathFromQt(const QString& path) { return QFile::encodeName(path).toStdString(); }

}  // namespace BrevisUI
