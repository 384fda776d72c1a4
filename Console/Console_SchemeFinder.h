// Finds and reads the scheme of a source file. Each scheme file is read once.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "scheme/Brevis_FormatterProperties.h"
#include "scheme/Brevis_PropertySet.h"
#include "store/BrevisUI_SchemeRemarks.h"

namespace Console {

using Remark = BrevisUI::SchemeRemark;

// A scheme file and what there is to say about it. It is of no use if one of the remarks is an error.
struct LoadedScheme {
    Brevis::PropertySet scheme;
    Brevis::FormatterProperties properties{scheme};  // what a run needs of it
    bool good = false;
    std::vector<Remark> remarks;
};

// Never throws for a bad file. Remarks name the path and, where it is known, the line.
LoadedScheme loadScheme(const std::string& path);

// The scheme file that comes with the program for files without one of their own.
std::string shippedSchemePath();

class SchemeFinder {
public:
    static constexpr const char* fileName = ".corvane.fsc";

    // `fallback` is the path of the scheme for files without one of their own.
    explicit SchemeFinder(std::string fallback) : fallback_(std::move(fallback)) {}

    // The path of the nearest scheme file in the directory of `file` or a parent of it, else the fallback. The file
    // needn't exist; a path without a directory stands in the current one, and so does an empty one.
    std::string pathFor(const std::string& file) const;

    // The scheme at a path, read at the first call. The reference is good for the life of the finder.
    const LoadedScheme& load(const std::string& path);

private:
    std::string fallback_;
    std::map<std::string, LoadedScheme> loaded_;
};

}  // namespace Console
