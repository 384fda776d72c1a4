// The names and the forms of the values.
#include "settings/BrevisUI_Settings.h"

#include <sstream>

#include "BrevisUI_UserPlaces.h"
#include "settings/BrevisUI_Extensions.h"

namespace BrevisUI {

namespace {

using Section = SettingsFile::Section;

namespace Name {

constexpr std::string_view schemeDirectory = "PropertySetStore";
constexpr std::string_view windowPosition = "StandaloneWindowPos";
constexpr std::string_view formattingScheme = "StandaloneOnFormat";
constexpr std::string_view fileExtensions = "FileExtensions";
constexpr std::string_view backupExtension = "BackupExtension";
constexpr std::string_view createBackups = "CreateBackups";
constexpr std::string_view messagesThreshold = "MessagesThreshold";
constexpr std::string_view lastDirectory = "StandaloneLastDirectory";
constexpr std::string_view dialect = "Dialect";

}  // namespace Name

constexpr std::string_view defaultExtensions = "c,cc,cpp,cxx,h,hh,hpp,hxx";

std::optional<WindowPosition> parseWindowPosition(const std::string& text) {
    std::istringstream in(text);
    WindowPosition position;
    if (!(in >> position.left >> position.top >> position.right >> position.bottom)) return std::nullopt;
    return position;
}

std::string textOf(const WindowPosition& position) {
    std::string text = std::to_string(position.left);
    for (const int number : {position.top, position.right, position.bottom}) text += " " + std::to_string(number);
    return text;
}

Brevis::DialectChoice parseDialect(std::string_view text) {
    if (text == "classic") return Brevis::DialectChoice::classic;
    return text == "modern" ? Brevis::DialectChoice::modern : Brevis::DialectChoice::automatic;
}

void readText(const SettingsFile& file, std::string_view name, std::string& value) {
    if (std::optional<std::string> text = file.text(Section::Options, name)) value = std::move(*text);
}

}  // namespace

Settings::Settings() : fileExtensions(parseExtensions(defaultExtensions)) {}

Settings readSettings(const SettingsFile& file) {
    Settings settings;
    std::string position, extensions, dialect;
    readText(file, Name::windowPosition, position);
    settings.windowPosition = parseWindowPosition(position);
    readText(file, Name::formattingScheme, settings.formattingScheme);
    readText(file, Name::fileExtensions, extensions);
    if (!extensions.empty()) settings.fileExtensions = parseExtensions(extensions);
    readText(file, Name::backupExtension, settings.backupExtension);
    settings.createBackups = file.number(Section::Options, Name::createBackups).value_or(1) != 0;
    settings.messagesThreshold =
        file.number(Section::Options, Name::messagesThreshold).value_or(settings.messagesThreshold);
    readText(file, Name::lastDirectory, settings.lastDirectory);
    readText(file, Name::dialect, dialect);
    settings.dialect = parseDialect(dialect);
    return settings;
}

void writeSettings(const Settings& settings, SettingsFile& file) {
    const auto& position = settings.windowPosition;
    if (position) file.setText(Section::Options, Name::windowPosition, textOf(*position));
    file.setText(Section::Options, Name::formattingScheme, settings.formattingScheme);
    file.setText(Section::Options, Name::fileExtensions, joinExtensions(settings.fileExtensions));
    file.setText(Section::Options, Name::backupExtension, settings.backupExtension);
    file.setNumber(Section::Options, Name::createBackups, settings.createBackups ? 1 : 0);
    file.setNumber(Section::Options, Name::messagesThreshold, settings.messagesThreshold);
    file.setText(Section::Options, Name::lastDirectory, settings.lastDirectory);
}

std::string schemeDirectory(const SettingsFile& file) {
    const std::string named = file.text(Section::Application, Name::schemeDirectory).value_or("");
    return named.empty() ? userSchemeDirectory() : named;
}

std::string settledSchemeDirectory(SettingsFile& file) {
    std::string directory = schemeDirectory(file);
    if (file.text(Section::Application, Name::schemeDirectory).value_or("").empty()) {
        file.setText(Section::Application, Name::schemeDirectory, directory);
        // Whoever loaded the file has been told if it can't be written.
        file.save();
    }
    return directory;
}

}  // namespace BrevisUI
