// The filters of file dialogs.
#include "qt/BrevisUI_SystemDialogs.h"

#include <gtest/gtest.h>

#include "batch/BrevisUI_BatchMessages.h"

namespace BrevisUI {
namespace {

TEST(SystemDialogs, filtersBecomeRowsOfTheToolkit) {
    EXPECT_EQ(filterRows("C++ Source Files|*.c;*.h||"), QStringList({"C++ Source Files (*.c *.h)"}));
    EXPECT_EQ(filterRows(Filter::laterProjects), QStringList({"C/C++ Project Files (*.vcxproj *.vcxitems *.vcproj)",
                                                              "Compilation Databases (compile_commands.json)"}));
    EXPECT_EQ(filterRows(""), QStringList());
}

}  // namespace
}  // namespace BrevisUI
