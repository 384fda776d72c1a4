// Which files a run of corvane-format is about. Lists directories and reads ignore files; never a source file.
#pragma once

#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

#include "Console_FormatOptions.h"

namespace Console {

class FileSelection {
public:
    // Told what goes wrong, with one of BrevisUI::Severity.
    using Tell = std::function<void(const std::string& text, int severity)>;

    // `options` must outlive the selection.
    FileSelection(const FormatOptions& options, Tell tell) : options_(options), tell_(std::move(tell)) {}

    // The files in the order of the arguments, and each once. Those below a directory stand in its place, in the order
    // of their names.
    std::vector<std::string> select();
    // Whether something that was named could not be taken, once its message has been sent.
    bool hasFailed() const { return failed_; }

private:
    void fail(const std::string& text);
    void addNamed(const std::string& name);
    void addTree(const std::string& directory);
    void add(const std::string& file);

    const FormatOptions& options_;
    const Tell tell_;
    std::vector<std::string> files_;
    std::unordered_set<std::string> known_;  // by full path
    bool failed_ = false;
};

}  // namespace Console
