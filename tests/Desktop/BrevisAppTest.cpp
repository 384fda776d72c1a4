// The program from its start to its end: what it reads, what it writes, and what ends it before its time.
#include "qt/BrevisUI_BrevisApp.h"

#include <QComboBox>
#include <filesystem>

#include "DesktopTest.h"
#include "qt/BrevisUI_OptionsDlg.h"
#include "qt/BrevisUI_WindowPlace.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;

class BrevisAppTest : public DesktopTest {
protected:
    bool run(const std::function<void(BrevisDlg&)>& onShown) {
        auto& application = *dynamic_cast<Application*>(qApp);
        return BrevisApp(application, dialogs, settingsPath()).run(onShown);
    }
    static void pressOptions(BrevisDlg& shownWindow) {
        for (QAction* const action : shownWindow.findChildren<QAction*>()) {
            if (action->text() == QStringLiteral("&Options...")) action->trigger();
        }
    }
    void protect(const std::string& path) {
        fs::permissions(path, fs::perms::owner_read | fs::perms::owner_exec);
        protectedPath = path;
    }
    ~BrevisAppTest() override {
        if (!protectedPath.empty()) fs::permissions(protectedPath, fs::perms::owner_all);
    }

    std::string protectedPath;
};

TEST_F(BrevisAppTest, readsWhatItWroteAtItsEnd) {
    writeSettings();
    const QRect place(40, 50, 600, 300);
    EXPECT_TRUE(run([&](BrevisDlg& first) {
        first.setGeometry(place);
        first.close();
    }));
    EXPECT_EQ(savedOptions().at("StandaloneWindowPos"), "40 50 640 350");
    EXPECT_EQ(savedOptions().at("StandaloneOnFormat"), "Narrow");
    EXPECT_EQ(savedOptions().at("CreateBackups"), 0);
    EXPECT_TRUE(run([&](BrevisDlg& second) {
        EXPECT_EQ(second.geometry(), place);
        EXPECT_EQ(second.state().settings.lastDirectory, dir.path());
        second.close();
    }));
    EXPECT_TRUE(dialogs.log.empty());
}

TEST_F(BrevisAppTest, endsAtAStoreThatCannotBeRead) {
    dir.file("schemes/Bad.fsc", "no scheme");
    writeSettings();
    EXPECT_FALSE(run([](BrevisDlg&) { FAIL() << "There is a window."; }));
    ASSERT_EQ(dialogs.log.size(), 1u);
    EXPECT_TRUE(dialogs.hasTold("warning: Corvane C++ encountered an error while trying to read the scheme file \"" +
                                dir.file("schemes/Bad.fsc")));
}

TEST_F(BrevisAppTest, endsAtAStoreThatCannotBeWritten) {
    writeSettings();
    EXPECT_FALSE(run([&](BrevisDlg& shownWindow) {
        // No scheme may be replaced, nor another one be made.
        for (const char* name : {"Narrow", "Wide"}) fs::remove(dir.file(std::string("schemes/") + name + ".fsc"));
        protect(dir.file("schemes"));
        fs::rename(dir.file("schemes"), dir.file("away"));
        protectedPath = dir.file("away");
        dir.file("schemes", "in the way");
        inDialog<OptionsDlg>([](OptionsDlg& dialog) { dialog.accept(); });
        pressOptions(shownWindow);
    }));
    ASSERT_EQ(dialogs.log.size(), 1u);
    EXPECT_TRUE(dialogs.hasTold("warning: Corvane C++ encountered an error while trying to write the scheme file \""));
    EXPECT_FALSE(savedOptions().contains("FileExtensions"));
}

TEST_F(BrevisAppTest, warnsOfSettingsThatCannotBeKept) {
    TestFiles::write(settingsPath(), "[]");
    ::setenv("XDG_DATA_HOME", dir.path().c_str(), 1);
    EXPECT_TRUE(run([](BrevisDlg& shownWindow) { shownWindow.close(); }));
    ASSERT_EQ(dialogs.log.size(), 2u);
    EXPECT_TRUE(dialogs.log.front().starts_with("warning: Could not open application registry key."));
    EXPECT_EQ(dialogs.log.front(), dialogs.log.back());
    EXPECT_EQ(TestFiles::contents(settingsPath()), "[]");
}

TEST(WindowPlace, comesBackToAScreenThatIsThere) {
    const QRect left(0, 0, 1000, 800), right(1000, 0, 1000, 800);
    EXPECT_EQ(fitToScreens({1100, 50, 300, 200}, {left, right}), QRect(1100, 50, 300, 200));
    EXPECT_EQ(fitToScreens({1100, 50, 300, 200}, {left}), QRect(700, 50, 300, 200));
    EXPECT_EQ(fitToScreens({-500, -50, 1500, 900}, {left}), left);
    EXPECT_EQ(fitToScreens({900, 700, 300, 200}, {left, right}), QRect(1000, 600, 300, 200));
}

}  // namespace
}  // namespace BrevisUI
