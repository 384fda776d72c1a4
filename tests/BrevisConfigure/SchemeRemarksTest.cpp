// Keys that a user may have meant.
#include "store/BrevisUI_SchemeRemarks.h"

#include <gtest/gtest.h>

#include "scheme/Brevis_PropertyCatalogue.h"

namespace BrevisUI {
namespace {

TEST(SchemeRemarks, NameTheNearestKeyIfItIsNear) {
    const struct {
        const char* key;
        const char* nearest;
    } cases[] = {
        {"WS_AFTER_FN_NAEM", "WS_AFTER_FN_NAME"},
        {"TABSIZE", "TAB_SIZE"},
        {"tab_size", "TAB_SIZE"},
        {"LINE_WARP", "LINE_WRAP"},
        {"RIHGT_MARGN", "RIGHT_MARGIN"},
        {"TAB", ""},
        {"WS_BEFORE_XS_OPEN_BRACE", "WS_BEFORE_NS_OPEN_BRACE"},  // the first of several that are as near
        {"WS_AFTER_CLASS_NAMES", "WS_AFTER_CLASS_NAME"},
        {"WIDTH_OF_THE_PAGE", ""},
        {"x", ""},
        {"", ""},
    };
    for (const auto& [key, nearest] : cases) EXPECT_EQ(nearest, nearestKey(key)) << key;
    for (const Brevis::PropertyInfo& property : Brevis::Catalogue::properties) {
        EXPECT_EQ(property.key, nearestKey(property.key));
    }
}

TEST(SchemeRemarks, AreMadeOnUnknownKeysOnly) {
    Brevis::PropertySet scheme;
    scheme.setBool("LINE_WRAPS", true);
    scheme.setInt("TAB_SIZE", 4);
    scheme.setInt("SPACES_PER_TAB", 4);
    scheme.setString("INDENT_CLASS_INITS", "");
    scheme.setString("SOMETHING_ELSE", "");
    const std::vector<SchemeRemark> remarks = remarksOn(scheme);
    ASSERT_EQ(2u, remarks.size());
    EXPECT_EQ("The key LINE_WRAPS is unknown and has no effect; the nearest known key is LINE_WRAP.", remarks[0].text);
    EXPECT_EQ("The key SOMETHING_ELSE is unknown and has no effect.", remarks[1].text);
    for (const SchemeRemark& remark : remarks) EXPECT_EQ(2, remark.severity);
}

}  // namespace
}  // namespace BrevisUI
