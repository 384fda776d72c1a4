// The questions that the rules of the "Manage Schemes" dialog put to the user. A window answers with message boxes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace BrevisUI {

class StylesDlgHost {
public:
    enum class Answer { Yes, No, Cancel };

    virtual ~StylesDlgHost() = default;

    virtual void showWarning(std::string_view text) = 0;
    virtual bool askYesNo(std::string_view text) = 0;
    virtual Answer askYesNoCancel(std::string_view text) = 0;
    // A dialog "Save Scheme" with the field "Save this formatting scheme as:" that holds the proposal. None if the user
    // cancels it. The rules check the name and ask again with it where it won't do.
    virtual std::optional<std::string> askSchemeName(std::string_view proposal) = 0;
};

}  // namespace BrevisUI
