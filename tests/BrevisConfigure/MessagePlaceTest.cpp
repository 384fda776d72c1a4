// From a message to the command that opens its file in an editor.
#include "BrevisUI_MessagePlace.h"

#include <gtest/gtest.h>

#include "BrevisUI_EditorCommand.h"
#include "BrevisUI_Messages.h"
#include "projects/BrevisUI_ProjectError.h"

namespace BrevisUI {
namespace {

using Words = std::vector<std::string>;

MessagePlace placeOf(const std::string& message) { return findPlace(message).value_or(MessagePlace{"none"}); }

TEST(MessagePlace, isFoundInEachFormOfMessage) {
    Trn::ParseMessage parsed;
    parsed.severity = Severity::error;
    parsed.position = {12, 7};
    parsed.text = "Expected \"(\".";
    EXPECT_EQ(placeOf(parseMessageLine("/d/a (2) : b.c", parsed)), (MessagePlace{"/d/a (2) : b.c", 12, 7}));
    parsed.position = {0, 0};
    EXPECT_EQ(placeOf(parseMessageLine("/d/a.c", parsed)), (MessagePlace{"/d/a.c", 0, 0}));
    EXPECT_EQ(placeOf(projectMessage("/p.dsp", 3, "information", "Text")), (MessagePlace{"/p.dsp", 3, 0}));
    EXPECT_EQ(placeOf(projectMessage("/p(1).dsp", 0, "error", "\"/x\"")), (MessagePlace{"/p(1).dsp", 0, 0}));
    EXPECT_EQ(placeOf(fillIn(Message::noPermission, "/d/a b.c")), (MessagePlace{"/d/a b.c", 0, 0}));
}

TEST(MessagePlace, isNotFoundWhereNoFullPathStands) {
    for (const char* message : {"", "\"", "Finished formatting project.", "Formatting \"a.c\".", "/d/a.c(12)"}) {
        EXPECT_FALSE(findPlace(message)) << message;
    }
}

TEST(EditorCommand, fillsInTheSettingOrAnEditorThatIsKnown) {
    const MessagePlace place{"/d/{line} a.c", 12, 7};
    EXPECT_EQ(editorCommand("ed -x{line}:{column} \"{path}\"", "vi", place), Words({"ed", "-x12:7", place.path}));
    EXPECT_EQ(editorCommand(" \"/my editor/ed\"  -n", "", place), Words({"/my editor/ed", "-n", place.path}));
    EXPECT_EQ(editorCommand("", "/usr/bin/code --wait", place),
              Words({"/usr/bin/code", "--wait", "-g", place.path + ":12:7"}));
    EXPECT_EQ(editorCommand("", "nano", {"/a", 0, 0}), Words({"x-terminal-emulator", "-e", "nano", "+1,1", "/a"}));
    EXPECT_EQ(editorCommand("", "unheard-of", place), Words());
    EXPECT_EQ(editorCommand(" ", "", place), Words());
}

}  // namespace
}  // namespace BrevisUI
