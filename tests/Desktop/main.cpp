// Runs the tests of the windows on the toolkit's platform without a screen, and away from the files of whoever runs
// them.
#include <gtest/gtest.h>
#include "qt/BrevisUI_Application.h"

#include "../support/TestFiles.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const TestFiles::TempDir home;
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(name, QByteArray::fromStdString(home.path()));
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const BrevisUI::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
