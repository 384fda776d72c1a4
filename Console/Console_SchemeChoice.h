// Which scheme is in force for which file of a run.
#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "Console_SchemeFinder.h"

namespace Console {

class SchemeChoice {
public:
    // `given` is a path or a name, or empty: then each file has the scheme that is searched for.
    explicit SchemeChoice(const std::string& given);

    struct Choice {
        std::string path;
        const LoadedScheme* scheme;  // good as long as the object lives
    };
    // A directory stands for the files in it, and an empty name for the current directory. Any thread may ask.
    Choice forFile(const std::string& file);

    // What there is to say about a given scheme before a file is looked at.
    const std::vector<Remark>& remarks() const { return remarks_; }

private:
    const std::string& pathFor(const std::string& file);

    std::vector<Remark> remarks_;
    std::string given_;  // the path

    std::mutex mutex_;  // of what follows
    SchemeFinder finder_;
    // Files of one directory come together.
    std::string lastDirectory_, lastPath_;
};

}  // namespace Console
