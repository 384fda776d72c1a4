// Every text that the batch commands show to a user. Patterns have a %s or a %d for each of their subjects.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace BrevisUI {

// Filters of file dialogs: rows of a name and patterns, each ended by a bar, and one more bar at the end.
namespace Filter {

// The subject is the list of patterns, joined with semicolons.
inline constexpr std::string_view sources = "C++ Source Files|%s||";
inline constexpr std::string_view project = "MS Visual Studio Project Files (*.dsp)|*.dsp||";
inline constexpr std::string_view workspace = "MS Visual Studio Workspace Files (*.dsw)|*.dsw||";
// The formats that came later.
inline constexpr std::string_view laterProjects =
    "C/C++ Project Files (*.vcxproj, *.vcxitems, *.vcproj)|*.vcxproj;*.vcxitems;*.vcproj|"
    "Compilation Databases (compile_commands.json)|compile_commands.json||";
inline constexpr std::string_view laterWorkspaces = "Solution Files (*.sln, *.slnx)|*.sln;*.slnx||";

}  // namespace Filter

inline constexpr std::string_view folderTitle = "Select folder for formatting...";

namespace Question {

inline constexpr std::string_view unknownExtension =
    "The file \"%s\" does not have a file extension registered with Corvane as valid for formatting. Format the file "
    "anyway?";
inline constexpr std::string_view project =
    "You have chosen to format all C/C++ files in the project \"%s\". Are you sure you wish to continue?";
inline constexpr std::string_view workspace =
    "You have chosen to format all C/C++ files in the workspace \"%s\". Are you sure you wish to continue?";
inline constexpr std::string_view directoryTree =
    "You have chosen to format all C/C++ files under the directory tree \"%s\". Are you sure you wish to continue?";

}  // namespace Question

namespace BatchMessage {

inline constexpr std::string_view noScheme =
    "You have not selected a scheme to use when formatting. Please indicate via the Corvane C++ Options dialog which "
    "Scheme you wish to use when formatting before attempting to format again.";
inline constexpr std::string_view noProject =
    "Corvane C++ was unable to find an active project in the currently loaded workspace. Please set a project to be "
    "active before trying this command again.";
// The subjects are a path and the name of the scheme.
inline constexpr std::string_view startProject = "Formatting project \"%s\" using scheme \"%s\".";
inline constexpr std::string_view startWorkspace = "Formatting workspace \"%s\" using scheme \"%s\".";
inline constexpr std::string_view startDirectory = "Formatting files under directory \"%s\" using scheme \"%s\".";

inline constexpr std::string_view endProject = "Finished formatting project.";
inline constexpr std::string_view endWorkspace = "Finished formatting workspace.";
inline constexpr std::string_view endDirectoryTree = "Finished formatting directory tree.";
inline constexpr std::string_view cancelled = "Format operation cancelled at user's request.";

}  // namespace BatchMessage

namespace Status {

inline constexpr std::string_view file = "Formatting file %d of %d";
inline constexpr std::string_view adding = "Adding %s";
// Shown by the progress dialog.
inline constexpr std::string_view listing = "Creating the list of C/C++ files in the directory tree %s";

}  // namespace Status

// The pattern with the subjects in the places of %s and %d, in their order. A subject is never searched for places.
std::string fillInAll(std::string_view pattern, std::initializer_list<std::string_view> subjects);

}  // namespace BrevisUI
