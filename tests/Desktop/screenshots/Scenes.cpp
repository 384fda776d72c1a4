// The table of the windows.
#include "Scenes.h"

#include <filesystem>

#include "editor/BrevisUI_PageTable.h"
#include "qt/BrevisUI_BrevisDlg.h"
#include "qt/BrevisUI_FileProgressWindow.h"
#include "qt/BrevisUI_HelpWindow.h"
#include "qt/BrevisUI_OptionsDlg.h"
#include "qt/BrevisUI_SchemeSaveAsDlg.h"
#include "qt/BrevisUI_StatusPanes.h"
#include "qt/BrevisUI_StylesDlg.h"

namespace Screenshots {

using namespace BrevisUI;
namespace fs = std::filesystem;

namespace {

constexpr const char* example = "/home/ada/warehouse/";

// The main window behind a run over some files, one of which can't be parsed.
std::unique_ptr<BrevisDlg> mainWindow(Stage& stage) {
    auto window = std::make_unique<BrevisDlg>(SettingsFile(stage.dir.file("settings.json")), stage.dialogs);
    const auto tell = [&](const std::string& text, int severity) { window->logMessage(text, severity); };
    const std::string directory = example;
    tell("Formatting files under directory \"/home/ada/warehouse\" using scheme \"House style\".", 1);
    for (const char* name : {"article.cpp", "article.h", "inventory.cpp"}) {
        tell("Formatting \"" + directory + name + "\".", 1);
    }
    tell(directory + "inventory.cpp(128) : error: col 14: Expected \"(\".", 3);
    tell("The file \"" + directory + "inventory.h\" does not have read/write permissions and cannot be formatted.", 3);
    return window;
}

std::unique_ptr<QWidget> readyWindow(Stage& stage) {
    auto window = mainWindow(stage);
    window->logMessage("Finished formatting directory tree.", 1);
    return window;
}

std::unique_ptr<QWidget> busyWindow(Stage& stage) {
    auto window = mainWindow(stage);
    auto* const status = window->findChild<StatusPanes*>();
    status->setBusy();
    status->setText(QStringLiteral("Formatting file 5 of 12"));
    status->setRange(12);
    for (int i = 0; i < 4; ++i) status->advance();
    return window;
}

std::unique_ptr<QWidget> progressWindow(Stage& /*stage*/) {
    auto window = std::make_unique<FileProgressWindow>();
    BrevisUI::FileProgressDlg::UpdateFunction showPhase(window.get(), std::string(example) + "shelves.cpp");
    for (const char* phase : {"Opening file:\n%s", "Analyzing file:\n%s", "Formatting file:\n%s"}) showPhase(phase);
    return window;
}

std::unique_ptr<QWidget> optionsDialog(Stage& stage) {
    return std::make_unique<OptionsDlg>(stage.state, stage.settings, stage.memory, stage.dialogs);
}

std::unique_ptr<QWidget> editorPage(Stage& stage, std::size_t tab) {
    stage.memory.activeTab = tab;
    return std::make_unique<StylesDlg>(stage.state.store, stage.settings, stage.memory, stage.dialogs);
}

std::unique_ptr<QWidget> saveAsDialog(Stage& /*stage*/) {
    return std::make_unique<SchemeSaveAsDlg>(QStringLiteral("House style (Modified)"));
}

std::unique_ptr<QWidget> helpWindow(Stage& stage, const char* topic) {
    auto window = std::make_unique<HelpWindow>(stage.help);
    window->openTopic(topic);
    return window;
}

}  // namespace

Stage::Stage() : settings(dir.file("settings.json")) {
    fs::create_directory(dir.file("schemes"));
    for (const auto& file : fs::directory_iterator(CORVANE_SOURCE_DIR "/schemes")) {
        fs::copy(file.path(), dir.file("schemes"));
        fs::permissions(dir.file("schemes") / file.path().filename(), fs::perms::owner_read);
    }
    settings.load(SettingsFile::Access::Full);
    settings.setText(SettingsFile::Section::Application, "PropertySetStore", dir.file("schemes"));
    settings.setText(SettingsFile::Section::Options, "StandaloneOnFormat", "House style");
    settings.setText(SettingsFile::Section::Options, "CurrentPropertySet", "House style");
    settings.save();
    state.store.setPath(dir.file("schemes"));
    state.store.read();
    Brevis::PropertySet own = state.store.find("Allman")->scheme;
    own.setName("House style");
    state.store.insert(own);
    state.store.write();
    state.readSettingsFrom(settings);
}

std::vector<Scene> scenes() {
    std::vector<Scene> all = {
        {"main", readyWindow},
        {"main-busy", busyWindow},
        {"progress", progressWindow},
        {"options", optionsDialog},
        {"save-as", saveAsDialog},
        {"help", [](Stage& stage) { return helpWindow(stage, "Options.htm"); }},
        {"help-classes", [](Stage& stage) { return helpWindow(stage, "Classes.htm"); }},
    };
    for (std::size_t tab = 0; tab < std::size(pageTable); ++tab) {
        const std::string topic(pageTable[tab].helpTopic);
        all.push_back({"editor-" + std::to_string(tab + 1) + "-" + topic.substr(0, topic.find('.')),
                       [tab](Stage& stage) { return editorPage(stage, tab); }});
    }
    return all;
}

}  // namespace Screenshots
