// Every text that the file job shows to a user, and the form of a message about a place in a file. Patterns have one
// %s for their subject.
#pragma once

#include <string>
#include <string_view>

#include "Trn_ParseMessage.h"

namespace BrevisUI {

// The severities of messages; a host hides those below its threshold.
namespace Severity {

inline constexpr int information = 1, warning = 2, error = 3;

}  // namespace Severity

// The phases of a run. The pipeline has two more of the family.
namespace Phase {

inline constexpr const char* open = "Opening file:\n%s";
inline constexpr const char* write = "Writing file:\n%s";
inline constexpr const char* done = "Completed file:\n%s";
inline constexpr const char* refuse = "The file will not be formatted:\n%s";

}  // namespace Phase

// The subject of each is the path, save where said otherwise.
namespace Message {

inline constexpr std::string_view starting = "Formatting \"%s\".";
inline constexpr std::string_view missing = "The file \"%s\" cannot be found.";
inline constexpr std::string_view noPermission =
    "The file \"%s\" does not have read/write permissions and cannot be formatted.";
inline constexpr std::string_view unreadable =
    "Corvane C++ was unable to read the contents of the file \"%s\". The file will not be formatted.";
inline constexpr std::string_view noBackup =
    "Corvane C++ was unable to create a backup file for the file \"%s\". The file will not be formatted.";
inline constexpr std::string_view writeFailed =
    "Corvane C++ was unable to write the formatted text back to the file \"%s\". The file will not be formatted.";
inline constexpr std::string_view changedSinceRead =
    "The file \"%s\" has changed since it was read. The file will not be formatted.";
inline constexpr std::string_view busy =
    "The file \"%s\" is being written by another program. The file will not be formatted.";
// Each stands in front of the text of a failed write, with what the system says behind it or the place of the old text.
inline constexpr std::string_view notWritten = "The file \"%s\" cannot be written: ";
inline constexpr std::string_view damaged =
    "The file \"%s\" is half-written; corvane-format --recover puts its old text back, which is kept in ";
inline constexpr std::string_view utf16 =
    "The file \"%s\" is encoded in UTF-16 or UTF-32. The file will not be formatted; convert it to UTF-8 first.";
inline constexpr std::string_view nul =
    "The file \"%s\" holds NUL characters and is no source text. The file will not be formatted.";
// The place and the two texts stand in the message before it.
inline constexpr std::string_view codeChanged =
    "Formatting would change more than white space in the file \"%s\". The file will not be formatted.";
// The subject is what the exception tells. The next text follows it.
inline constexpr std::string_view unexpected =
    "An unexpected error has occurred. The current Corvane C++ operation has failed. Please contact Vellum Software "
    "Technical Support and report the following details: %s";
inline constexpr std::string_view notFormatted = " The file \"%s\" will not be formatted.";
// Of a run. The subject is what the system says.
inline constexpr std::string_view noUndo = "The changes of this run cannot be undone: %s.";
// Without a subject.
inline constexpr std::string_view outOfMemory =
    "Corvane C++ is out of memory. Please try closing applications before attempting to run this application again.";

}  // namespace Message

// The pattern with `subject` in the place of its first %s.
std::string fillIn(std::string_view pattern, std::string_view subject);

// What is sent last when a file couldn't be parsed. It holds two addresses, which are constants of the build.
std::string parseFailedMessage(std::string_view path);

// A message about a place in a file: `a.cpp(12) : error: col 7: Expected "(".`
std::string parseMessageLine(std::string_view path, const Trn::ParseMessage& message);

}  // namespace BrevisUI
