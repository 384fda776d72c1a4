// What becomes of the values of a scheme of the first edition.
#include "store/BrevisUI_SchemeUpgrade.h"

#include <gtest/gtest.h>

#include <sstream>

#include "scheme/Brevis_SchemeText.h"

namespace BrevisUI {
namespace {

std::string upgraded(const std::string& properties) {
    Brevis::PropertySet scheme;
    Trn::ParseMessageList messages;
    EXPECT_TRUE(Brevis::readSchemeText("Brevis::PropertySet\n1\n\"s\"\n" + properties, scheme, messages));
    std::ostringstream out;
    upgradeScheme(scheme).scheme.write(out);
    const std::string text = out.str();
    return text.substr(text.find("\"s\"\n") + 4);
}

TEST(SchemeUpgrade, KeepsWhatTheFirstEditionDoes) {
    const std::string edition = "2 EDITION 2\n", parameter = "3 WS_AFTER_PARAM_TYPE_ID \" \"\n";
    const struct {
        const char* scheme;
        std::string expected;
    } cases[] = {
        {"", edition + parameter},
        // Places that the first edition gives the values of others.
        {"3 GLOBAL_INDENT_CONTENT \"  \"\n3 INDENT_LINKAGE_CONTENT \"\"\n3 WS_BETWEEN_EXPR_OP_OPERANDS \" \"\n",
         edition + "3 GLOBAL_INDENT_CONTENT \"  \"\n3 INDENT_LINKAGE_CONTENT \"\"\n" + parameter +
         "3 WS_BETWEEN_EXPR_OP_OPERANDS \" \"\n3 WS_BETWEEN_SUBSCRIPT_OP_OPERANDS \" \"\n"},
        {"3 WS_BEFORE_CLASS_CLOSE_BRACE \"\\n\"\n3 WS_BEFORE_CS_CLOSE_BRACE \"\\n\"\n"
         "3 WS_BEFORE_FN_CLOSE_BRACE \"\\n\"\n",
         edition + parameter +
         "3 WS_BEFORE_CLASS_CLOSE_BRACE \"\\n\"\n3 WS_BEFORE_CS_CLOSE_BRACE \"\\n\"\n"
         "3 WS_BEFORE_FN_CLOSE_BRACE \"\\n\"\n3 WS_IN_EMPTY_BODY \"\\n\"\n"},
        // An empty value that acts as a blank.
        {"3 WS_AFTER_FN_DEFN_RETURN_TYPE \"\"\n", edition + "3 WS_AFTER_FN_DEFN_RETURN_TYPE \" \"\n" + parameter},
        // A list with a line for each element.
        {"3 WS_BETWEEN_FN_PARAMS \"\\n\"\n",
         "1 ALIGN_CONTINUATION_LEFT 1\n" + edition + parameter + "3 WS_BETWEEN_FN_PARAMS \"\\n\"\n"},
    };
    for (const auto& [scheme, expected] : cases) EXPECT_EQ(expected, upgraded(scheme)) << scheme;
}

TEST(SchemeUpgrade, TellsOnlyWhatTheSchemeHasAValueFor) {
    Brevis::PropertySet scheme("s");
    const std::size_t always = upgradeScheme(scheme).differences.size();
    scheme.setInt("ASTERISK_ANCHOR", 1);
    const auto differences = upgradeScheme(scheme).differences;
    ASSERT_EQ(always + 1, differences.size());
    EXPECT_NE(std::string::npos, differences.back().find("ASTERISK_ANCHOR"));
}

}  // namespace
}  // namespace BrevisUI
