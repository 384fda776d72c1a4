// The names and the forms of the editor's values.
#include "settings/BrevisUI_EditorSettings.h"

#include "scheme/Brevis_Escapes.h"

namespace BrevisUI {

namespace {

using Section = SettingsFile::Section;

constexpr std::string_view currentSchemeName = "CurrentPropertySet", faceName = "FontFace", sizeName = "FontSize";

}  // namespace

std::string currentScheme(const SettingsFile& file) {
    return file.text(Section::Options, currentSchemeName).value_or("");
}

void setCurrentScheme(std::string_view name, SettingsFile& file) {
    file.setText(Section::Options, currentSchemeName, name);
}

std::string previewSample(std::string_view name, std::string_view builtIn, SettingsFile& file) {
    if (const std::optional<std::string> sample = file.text(Section::Options, name)) {
        return Brevis::unescapeText(*sample);
    }
    file.setText(Section::Options, name, Brevis::escapeText(builtIn));
    return std::string(builtIn);
}

PreviewFont previewFont(const SettingsFile& file) {
    PreviewFont font;
    font.face = file.text(Section::SourceWindow, faceName).value_or(font.face);
    font.size = file.number(Section::SourceWindow, sizeName).value_or(font.size);
    return font;
}

}  // namespace BrevisUI
