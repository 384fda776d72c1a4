// Tells whether two names are of one file. Asks the disk for links, and opens nothing.
#pragma once

#include <string>

namespace Console {

class FileIdentity {
public:
    // The same text for every name of a file, be it by a symbolic link. Hard links are files of their own.
    std::string of(const std::string& file);

private:
    // Files of one directory come together: the last one, as it was named and as it is.
    std::string lastDirectory_, lastReal_;
};

}  // namespace Console
