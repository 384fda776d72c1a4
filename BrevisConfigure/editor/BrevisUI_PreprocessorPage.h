// The page of the preprocessor directives: one group of three radio buttons for two keys.
//
//   "Indent with surrounding text"    neither key is true
//   "Align to left-most margin"       ALIGN_PPD_LEFT_MOST is true
//   "Leave as is"                     PPD_DO_NOT_FORMAT is true, ALIGN_PPD_LEFT_MOST is absent
//
// Its one field stands under the key ALIGN_PPD_LEFT_MOST; the other key leads to it too.
#pragma once

#include "editor/BrevisUI_StylesBasePage.h"

namespace BrevisUI {

class PreprocessorPage : public StylesBasePage {
public:
    explicit PreprocessorPage(StylesSheet& sheet);

private:
    void load() override;
    void store() override;
    void refreshFields() override {}
    std::string_view fieldKey(std::string_view key) const override;
};

}  // namespace BrevisUI
