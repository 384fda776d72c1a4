// A project or workspace file that can't be read. The message is for the user and tells the file and the line.
#pragma once

#include <string>
#include <string_view>

#include "Trn_Exception.h"

namespace BrevisUI {

// `line` is 0 for a message about the whole file; lines count from 1.
inline std::string projectMessage(const std::string& path, int line, std::string_view severity, std::string_view text) {
    std::string message = path;
    if (line > 0) message.append("(").append(std::to_string(line)).append(")");
    return message.append(" : ").append(severity).append(": ").append(text);
}

class ProjectError : public Trn::Exception {
public:
    ProjectError(const std::string& path, int line, std::string_view text)
        : Exception(projectMessage(path, line, "error", text)) {}
    // About the whole file.
    ProjectError(const std::string& path, std::string_view text) : ProjectError(path, 0, text) {}
};

}  // namespace BrevisUI
