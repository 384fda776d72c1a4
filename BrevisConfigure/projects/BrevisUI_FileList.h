// The files of a project: in the order in which they are first named, each once.
#pragma once

#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace BrevisUI {

class FileList {
public:
    void add(const std::string& path) {
        if (known_.insert(path).second) paths_.push_back(path);
    }
    void add(const std::vector<std::string>& paths) {
        for (const std::string& path : paths) add(path);
    }

    std::vector<std::string> take() { return std::move(paths_); }

private:
    std::vector<std::string> paths_;
    std::unordered_set<std::string> known_;
};

}  // namespace BrevisUI
