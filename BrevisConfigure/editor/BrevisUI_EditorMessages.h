// Every fixed text that the scheme editor shows to a user in a box or in its preview.
#pragma once

#include <string_view>

namespace BrevisUI::EditorMessage {

inline constexpr std::string_view notWhiteSpace =
    "Please only enter white space.\n"
    "Valid entries are: \\n (newline)  \\t (tab)  or  \\s (space)";

inline constexpr std::string_view notNames = "Please only enter names of macros, separated by spaces.";

inline constexpr std::string_view noName = "You must enter a name for the scheme.";
inline constexpr std::string_view nameOfBuiltIn =
    "A built-in scheme has this name and cannot be replaced. Please enter another name.";
inline constexpr std::string_view cannotDelete = "This scheme is built-in and cannot be deleted.";
inline constexpr std::string_view askDelete = "Are you sure you wish to delete this scheme?";
inline constexpr std::string_view askSaveBuiltIn =
    "You have modified a built-in scheme that is read only. Choose Yes to save the changes to a new scheme, No to "
    "discard the changes and Cancel to return to the Manage Schemes dialog.";

inline constexpr std::string_view leftAsIs = "Code will be left as is";
inline constexpr std::string_view noPreview = "No Preview Available";

// The subject is the path of a scheme file. What is wrong with its lines follows the first two.
inline constexpr std::string_view notImported = "The scheme file \"%s\" cannot be read.";
inline constexpr std::string_view importedInPart = "Some lines of the scheme file \"%s\" are left out.";
inline constexpr std::string_view notExported = "The scheme file \"%s\" cannot be written.";

}  // namespace BrevisUI::EditorMessage
