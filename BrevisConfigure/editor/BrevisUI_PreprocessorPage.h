// The page of the preprocessor directives: one group of three radio buttons for two keys, and the names of macros.
//
//   "Indent with surrounding text"    neither key is true
//   "Align to left-most margin"       ALIGN_PPD_LEFT_MOST is true
//   "Leave as is"                     PPD_DO_NOT_FORMAT is true, ALIGN_PPD_LEFT_MOST is absent
//
// The buttons are the first field and stand under the key ALIGN_PPD_LEFT_MOST; the other key leads to it too. They
// don't switch off the other fields.
#pragma once

#include "editor/BrevisUI_StylesBasePage.h"

namespace BrevisUI {

class PreprocessorPage : public StylesBasePage {
public:
    explicit PreprocessorPage(StylesSheet& sheet);

private:
    void load() override;
    void store() override;
    std::string_view fieldKey(std::string_view key) const override;
    void loadButtons();
    void storeButtons();
};

}  // namespace BrevisUI
