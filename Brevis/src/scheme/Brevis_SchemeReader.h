// Reads the text form of a scheme and remembers where in the file it stands, so that a host can tell its user which
// line is at fault. It opens no files.
#pragma once

#include <istream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "scheme/Brevis_PropertySet.h"

namespace Brevis {

// The fixed words of the text form: three head lines (magic, version, quoted name), then one property a line, which is
// a type, a key and a value.
namespace SchemeFile {

inline constexpr std::string_view magic = "Brevis::PropertySet";
inline constexpr char version = '1';
inline constexpr char boolType = '1';
inline constexpr char intType = '2';
inline constexpr char stringType = '3';

}  // namespace SchemeFile

class SchemeReader {
public:
    // Why a file is no scheme.
    enum class Fault { None, Unreadable, Magic, Version, Type };
    // A property line that the reader passed over without calling the file bad.
    enum class Omission { BadValue, NoLineFeed };
    struct OmittedLine {
        int line;
        Omission why;
    };
    // Where a property stands. The type is that of the text form.
    struct PropertyLine {
        int line;
        char type;
        std::string key;
    };

    explicit SchemeReader(std::istream& in);

    // Reads the stream to its end into `scheme`. Gives false, with the stream's fail state set, if the text is
    // no scheme; `scheme` is then of no use. Throws InvalidPropertyName for a string property without a key.
    bool read(PropertySet& scheme);

    Fault fault() const { return fault_; }
    // The line read last, counted from 1: behind a fault or an exception the line at fault.
    int line() const { return line_; }
    // What was left out, in the order of the file.
    const std::vector<OmittedLine>& omissions() const { return omissions_; }
    // What was taken, in the order of the file; of two lines with the same type and key the later one counts.
    const std::vector<PropertyLine>& lines() const { return lines_; }

private:
    bool fail(Fault fault);
    // The next line that is neither empty nor a comment, without white space at its ends. At the end of the file it
    // may be empty, or, when the last line has no line feed, the stream is no longer good behind it.
    std::string readLine();
    bool readVersion();
    void readName(PropertySet& scheme);
    bool readProperty(const std::string& line, PropertySet& scheme);

    std::istream& in_;
    std::istringstream fields_;  // of one line; a stream is dear to make
    int line_ = 0;
    Fault fault_ = Fault::None;
    std::vector<OmittedLine> omissions_;
    std::vector<PropertyLine> lines_;
};

}  // namespace Brevis
