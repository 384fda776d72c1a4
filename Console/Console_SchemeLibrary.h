// The schemes that have a name of their own: those of the user's scheme directory, and those that come with the program
// for a user without such a directory. It reads the user's settings and never writes them.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "store/BrevisUI_PropertySetStore.h"
#include "store/BrevisUI_SchemeRemarks.h"

namespace Console {

class SchemeLibrary {
public:
    struct Scheme {
        std::string path;
        bool builtIn;
    };
    using Schemes = std::map<std::string, Scheme, std::less<>>;  // by name

    // Delivers the shipped schemes to the user, as far as that can be done.
    SchemeLibrary();

    const Schemes& schemes() const { return schemes_; }
    // The path of the scheme file, empty if there is no scheme of this name.
    std::string pathOf(std::string_view name) const;
    // What is wrong with the settings and with files in the directory that are no schemes.
    const std::vector<BrevisUI::SchemeRemark>& remarks() const { return remarks_; }

private:
    void add(const BrevisUI::PropertySetStore& store, bool alwaysBuiltIn);

    Schemes schemes_;
    std::vector<BrevisUI::SchemeRemark> remarks_;
};

// What a user means who gives a scheme.
struct GivenScheme {
    std::string path;
    std::vector<BrevisUI::SchemeRemark> remarks;  // to be shown first
};

// The path of a scheme file, or else the name of a scheme. For what is neither the path is what was given.
GivenScheme findGivenScheme(const std::string& pathOrName);

}  // namespace Console
